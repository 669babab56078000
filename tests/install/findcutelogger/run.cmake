# SPDX-License-Identifier: LGPL-2.1-or-later
# What cmake/FindCuteLogger.cmake takes and what it leaves alone, each in a build of its own.
#   cmake -DSOURCE_ROOT=<repository> -DWORK_DIR=<folder to empty> -DGENERATOR=Ninja -DCXX_COMPILER=g++
#         [-DCXX_COMPILER_LAUNCHER=ccache] [-DPREFIX_PATH=<where Qt is>] -P run.cmake
cmake_minimum_required(VERSION 3.25)

set(here "${CMAKE_CURRENT_LIST_DIR}")
foreach(name IN ITEMS SOURCE_ROOT WORK_DIR GENERATOR CXX_COMPILER)
    if(NOT ${name})
        message(FATAL_ERROR "${name} is not given, see the head of run.cmake")
    endif()
endforeach()
file(REMOVE_RECURSE "${WORK_DIR}")

# Runs a command in the work folder; sets `output`, and stops where the command fails.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE text ERROR_VARIABLE text)
    if(NOT status EQUAL 0)
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${command}\n${text}\nstopped with ${status}")
    endif()
    set(output "${text}" PARENT_SCOPE)
endfunction()

# Configures and builds <source> in <work folder>/<name>; further arguments go to the configure step.
function(build name source)
    run("${CMAKE_COMMAND}" -G "${GENERATOR}" -S "${source}" -B "${WORK_DIR}/${name}"
        "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}" "-DCMAKE_CXX_COMPILER_LAUNCHER=${CXX_COMPILER_LAUNCHER}"
        "-DCMAKE_MODULE_PATH=${SOURCE_ROOT}/cmake" "-DCMAKE_INSTALL_LIBDIR=lib" "-DQT_PREFIX=${PREFIX_PATH}"
        "-DCMAKE_INSTALL_PREFIX=${WORK_DIR}/prefix-${name}" ${ARGN})
    set(configured "${output}")
    run("${CMAKE_COMMAND}" --build "${WORK_DIR}/${name}")
    set(output "${configured}" PARENT_SCOPE)
endfunction()

function(expect row text)
    foreach(part IN LISTS ARGN)
        string(FIND "${text}" "${part}" at)
        if(at EQUAL -1)
            message(FATAL_ERROR "${row}: expected \"${part}\" in\n${text}")
        endif()
    endforeach()
endfunction()

# Builds the consumer, runs it and compares what the configure step and the program say.
function(expect_consumer row name accessor origin record)
    build(${name} "${here}/consumer" ${ARGN})
    expect("${row}" "${output}" "accessor=${accessor}\n" "origin=${origin}\n" "rejected=${rejected}\n")
    run("${WORK_DIR}/${name}/consumer")
    expect("${row}" "${output}" "${record}")
    message(STATUS "${row}: ok")
endfunction()

build(standin "${SOURCE_ROOT}/compat/cutelogger" "-DCMAKE_PREFIX_PATH=${PREFIX_PATH}")
build(early "${here}/fake" -DACCESSOR=loggerInstance -DMACRO=logger)
build(late "${here}/fake" -DACCESSOR=cuteLoggerInstance -DMACRO=cuteLogger -DHEADER_FOLDER=/cutelogger)
foreach(name IN ITEMS standin early late)
    run("${CMAKE_COMMAND}" --install "${WORK_DIR}/${name}")
endforeach()

set(rejected "")
expect_consumer("the stand-in, as a target of the enclosing project" with-standin loggerInstance
    "target CuteLogger::CuteLogger of the enclosing project" "[Debug  ] <consumer> a record \n"
    "-DENCLOSED=${SOURCE_ROOT}/compat/cutelogger" -DWITH_QT=ON)
expect_consumer("an early version, header in include" with-early loggerInstance
    "${WORK_DIR}/prefix-early/lib/libCuteLogger.so" "loggerInstance: a record\n"
    "-DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix-early")
expect_consumer("a late version, header in a folder" with-late cuteLoggerInstance
    "${WORK_DIR}/prefix-late/lib/libCuteLogger.so" "cuteLoggerInstance: a record\n"
    "-DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix-late")

file(WRITE "${WORK_DIR}/prefix-other/include/Logger.h" "class Logger { void write(); };\n")
set(rejected "${WORK_DIR}/prefix-other/include/Logger.h is not CuteLogger's")
expect_consumer("another product's Logger.h in an earlier prefix" with-other-first cuteLoggerInstance
    "${WORK_DIR}/prefix-late/lib/libCuteLogger.so" "cuteLoggerInstance: a record\n"
    "-DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix-late" "-DFIRST_PREFIX=${WORK_DIR}/prefix-other")
set(rejected "")

expect_consumer("an enclosing project's target, before an installed one" with-target loggerInstance
    "target CuteLogger of the enclosing project" "loggerInstance: a record\n"
    "-DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix-late" "-DENCLOSED=${here}/fake" -DACCESSOR=loggerInstance -DMACRO=logger)

# Early versions keep their include directory to themselves; the header is known by its place in the source folder.
file(COPY "${here}/fake/" "${WORK_DIR}/prefix-early/include" DESTINATION "${WORK_DIR}/bare")
expect_consumer("an enclosing project's target that names no include directory" with-bare-target loggerInstance
    "target CuteLogger of the enclosing project" "loggerInstance: a record\n"
    "-DENCLOSED=${WORK_DIR}/bare" -DACCESSOR=loggerInstance -DMACRO=logger -DINCLUDE_SCOPE=PRIVATE)
expect_consumer("the header's folder is given, the library is beside it" with-folder cuteLoggerInstance
    "${WORK_DIR}/prefix-late/lib/libCuteLogger.so" "cuteLoggerInstance: a record\n"
    "-DCuteLogger_INCLUDE_DIR=${WORK_DIR}/prefix-late/include/cutelogger")

build(rejections "${here}/rejections" "-DEARLY_PREFIX=${WORK_DIR}/prefix-early"
    "-DSTAND_IN_PREFIX=${WORK_DIR}/prefix-standin")
message(STATUS "everything that is to be left alone: ok")
