# SPDX-License-Identifier: LGPL-2.1-or-later
#[[
FindCuteLogger
--------------

Finds CuteLogger 2014 or later (the class CuteMessageLogger is needed): a target `CuteLogger` of an enclosing project,
else an installed one. CMAKE_PREFIX_PATH is honoured; CuteLogger_INCLUDE_DIR and CuteLogger_LIBRARY may be given.

CuteLogger installs neither a package nor a version, and its header lies in include/ or in a folder of its own, so the
header and the library are recognised by what they declare. Left alone are
- one that is built for another Qt than 6,
- a static one: a host that links it too would register its appenders with a copy of its own, and they would receive
  nothing,
- the stand-in of an earlier installation of ours (compat/cutelogger): it is built again, so that a new prefix does not
  depend on an old one.

Sets
  CuteLogger_FOUND
  CuteLogger_ACCESSOR    loggerInstance or cuteLoggerInstance: the function that gives the global logger. From the
                         version on that has the latter, Logger.h also defines the macro `cuteLogger`; sources that
                         serve both ask for that macro.
  CuteLogger_ORIGIN      the library's path, or "target CuteLogger of the enclosing project"
  CuteLogger_REJECTED    what was seen and left alone, with the reason; empty if nothing was
and makes the imported target CuteLogger::CuteLogger, with system include directories.
]]

# Whether the header is that of our own stand-in. Its first releases have no mark, but they declare both accessors, which
# no CuteLogger does.
function(_cutelogger_is_stand_in header result)
    file(READ "${header}" text)
    set(${result} FALSE PARENT_SCOPE)
    if(text MATCHES "CuteLogger stand-in of ZrSupplyDatabase"
            OR (text MATCHES "[ *]loggerInstance\\(\\);" AND text MATCHES "[ *]cuteLoggerInstance\\(\\);"))
        set(${result} TRUE PARENT_SCOPE)
    endif()
endfunction()

# Sets <result> to the accessor that the header declares; where it is not usable, to "", and <reason> says why.
function(_cutelogger_read_header header result reason)
    set(${result} "" PARENT_SCOPE)
    set(${reason} "" PARENT_SCOPE)
    file(READ "${header}" text)
    if(NOT text MATCHES "class[^;{]*[ \t]Logger[ \t\r\n]*{" OR NOT text MATCHES "[lL]oggerInstance[ \t]*\\(")
        set(${reason} "${header} is not CuteLogger's" PARENT_SCOPE)
    elseif(NOT text MATCHES "class[^;{]*[ \t]CuteMessageLogger[ \t\r\n]*{")
        set(${reason} "${header} has no CuteMessageLogger, a CuteLogger of 2014 or later is needed" PARENT_SCOPE)
    elseif(text MATCHES "#[ \t]*define[ \t]+cuteLogger[ \t(]")
        set(${result} cuteLoggerInstance PARENT_SCOPE)
    elseif(text MATCHES "Logger[ \t]*\\*[ \t]*loggerInstance[ \t]*\\(")
        set(${result} loggerInstance PARENT_SCOPE)
    else()
        set(${reason} "${header} has neither loggerInstance() nor the macro cuteLogger" PARENT_SCOPE)
    endif()
endfunction()

# What was seen and left alone, for the message when nothing is found.
set_property(GLOBAL PROPERTY _CuteLogger_REASONS "")
function(_cutelogger_reject reason)
    set_property(GLOBAL APPEND PROPERTY _CuteLogger_REASONS "${reason}")
endfunction()

function(_cutelogger_accept_header result item)
    # find_path() hands over the folder.
    cmake_path(APPEND item Logger.h)
    cmake_path(NORMAL_PATH item)
    _cutelogger_read_header("${item}" accessor reason)
    _cutelogger_is_stand_in("${item}" stand_in)
    if(stand_in)
        _cutelogger_reject("${item} is the stand-in of an earlier installation of ZrSupplyDatabase, it is built again")
        set(${result} FALSE PARENT_SCOPE)
    elseif(NOT accessor)
        _cutelogger_reject("${reason}")
        set(${result} FALSE PARENT_SCOPE)
    endif()
endfunction()

function(_cutelogger_accept_library result item)
    # The names of the needed libraries and of the exported functions stand in the file as plain text.
    file(STRINGS "${item}" otherQt REGEX "Qt5Core|QtCore\\.so\\.4|QtCore4" LIMIT_COUNT 1)
    file(STRINGS "${item}" accessor REGEX "${CuteLogger_ACCESSOR}" LIMIT_COUNT 1)
    if(item MATCHES "\\.a$")
        _cutelogger_reject("${item} is static, so that a host's appenders would receive nothing: build it shared")
        set(${result} FALSE PARENT_SCOPE)
    elseif(otherQt)
        _cutelogger_reject("${item} is built for another Qt than 6")
        set(${result} FALSE PARENT_SCOPE)
    elseif(NOT accessor)
        _cutelogger_reject(
            "${item} has no ${CuteLogger_ACCESSOR}(), which ${CuteLogger_INCLUDE_DIR}/Logger.h declares")
        set(${result} FALSE PARENT_SCOPE)
    endif()
endfunction()

# Sets <result> to the directory of the target's Logger.h: its public include directories name it in later versions,
# earlier ones only have it in their source folder.
function(_cutelogger_target_include_dir target result)
    set(${result} "" PARENT_SCOPE)
    get_target_property(candidates ${target} INTERFACE_INCLUDE_DIRECTORIES)
    if(NOT candidates)
        set(candidates "")
    endif()
    get_target_property(folder ${target} SOURCE_DIR)
    list(APPEND candidates "${folder}" "${folder}/include")
    foreach(candidate IN LISTS candidates)
        string(REGEX REPLACE "^\\$<BUILD_INTERFACE:(.*)>$" "\\1" candidate "${candidate}")
        if(EXISTS "${candidate}/Logger.h")
            set(${result} "${candidate}" PARENT_SCOPE)
            return()
        endif()
    endforeach()
endfunction()

unset(CuteLogger_ACCESSOR)
unset(CuteLogger_ORIGIN)
unset(_CuteLogger_target)

# A target that stands already: the enclosing project's, or the one of an earlier call.
foreach(_CuteLogger_candidate IN ITEMS CuteLogger::CuteLogger CuteLogger)
    if(TARGET ${_CuteLogger_candidate} AND NOT CuteLogger_ACCESSOR)
        _cutelogger_target_include_dir(${_CuteLogger_candidate} _CuteLogger_target_dir)
        if(_CuteLogger_target_dir)
            _cutelogger_read_header("${_CuteLogger_target_dir}/Logger.h" CuteLogger_ACCESSOR _CuteLogger_reason)
        else()
            set(_CuteLogger_reason "target ${_CuteLogger_candidate} has no Logger.h in its include directories")
        endif()
        if(CuteLogger_ACCESSOR)
            set(_CuteLogger_target ${_CuteLogger_candidate})
        else()
            _cutelogger_reject("${_CuteLogger_reason}")
        endif()
    endif()
endforeach()

if(_CuteLogger_target)
    get_target_property(CuteLogger_ORIGIN ${_CuteLogger_target} IMPORTED_LOCATION)
    if(NOT CuteLogger_ORIGIN)
        set(CuteLogger_ORIGIN "target ${_CuteLogger_target} of the enclosing project")
    endif()
    set(_CuteLogger_required CuteLogger_ORIGIN CuteLogger_ACCESSOR)
else()
    find_path(CuteLogger_INCLUDE_DIR NAMES Logger.h PATH_SUFFIXES "" CuteLogger cutelogger
        VALIDATOR _cutelogger_accept_header
        DOC "Folder of CuteLogger's Logger.h")
    if(CuteLogger_INCLUDE_DIR)
        # Folders and libraries that were given, or found by an earlier run, are validated too.
        _cutelogger_accept_header(_CuteLogger_accepted "${CuteLogger_INCLUDE_DIR}")
        _cutelogger_read_header("${CuteLogger_INCLUDE_DIR}/Logger.h" CuteLogger_ACCESSOR _CuteLogger_reason)
        if(DEFINED _CuteLogger_accepted AND NOT _CuteLogger_accepted)
            unset(CuteLogger_ACCESSOR)
        endif()
        unset(_CuteLogger_accepted)
        # The library beside the header comes first: another prefix may hold another version.
        find_library(CuteLogger_LIBRARY NAMES CuteLogger
            HINTS "${CuteLogger_INCLUDE_DIR}/.." "${CuteLogger_INCLUDE_DIR}/../.."
            PATH_SUFFIXES lib "lib/${CMAKE_LIBRARY_ARCHITECTURE}" lib64
            VALIDATOR _cutelogger_accept_library
            DOC "CuteLogger's library")
        if(CuteLogger_LIBRARY)
            _cutelogger_accept_library(_CuteLogger_accepted "${CuteLogger_LIBRARY}")
            if(DEFINED _CuteLogger_accepted AND NOT _CuteLogger_accepted)
                set(CuteLogger_LIBRARY "CuteLogger_LIBRARY-NOTFOUND")
            endif()
            unset(_CuteLogger_accepted)
        endif()
    endif()
    if(CuteLogger_LIBRARY)
        set(CuteLogger_ORIGIN "${CuteLogger_LIBRARY}")
    endif()
    set(_CuteLogger_required CuteLogger_LIBRARY CuteLogger_INCLUDE_DIR CuteLogger_ACCESSOR)
    mark_as_advanced(CuteLogger_INCLUDE_DIR CuteLogger_LIBRARY)
endif()

get_property(_CuteLogger_reasons GLOBAL PROPERTY _CuteLogger_REASONS)
list(REMOVE_DUPLICATES _CuteLogger_reasons)
list(JOIN _CuteLogger_reasons ", and " CuteLogger_REJECTED)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(CuteLogger
    REQUIRED_VARS ${_CuteLogger_required}
    REASON_FAILURE_MESSAGE "${CuteLogger_REJECTED}")

if(CuteLogger_FOUND AND NOT TARGET CuteLogger::CuteLogger)
    if(_CuteLogger_target)
        add_library(CuteLogger::CuteLogger INTERFACE IMPORTED)
        target_link_libraries(CuteLogger::CuteLogger INTERFACE ${_CuteLogger_target})
        target_include_directories(CuteLogger::CuteLogger SYSTEM INTERFACE "${_CuteLogger_target_dir}")
    else()
        # UNKNOWN, not SHARED: a library that links this one privately then exports no reference to it.
        add_library(CuteLogger::CuteLogger UNKNOWN IMPORTED)
        set_target_properties(CuteLogger::CuteLogger PROPERTIES IMPORTED_LOCATION "${CuteLogger_LIBRARY}")
        target_include_directories(CuteLogger::CuteLogger SYSTEM INTERFACE "${CuteLogger_INCLUDE_DIR}")
        if(TARGET Qt6::Core)
            target_link_libraries(CuteLogger::CuteLogger INTERFACE Qt6::Core)
        endif()
    endif()
endif()
