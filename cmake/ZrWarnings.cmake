# SPDX-License-Identifier: LGPL-2.1-or-later
# Warnings for code that is ours, target by target.
function(zr_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
    if(ZR_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# What every target of ours is compiled with: C++17, Qt without its keywords and without silent text conversions.
function(zr_target target)
    target_compile_features(${target} PRIVATE cxx_std_17)
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
    zr_warnings(${target})
    zr_reuse_headers(${target} qt)
endfunction()

# zr_compile_headers(set LIBRARIES target... HEADERS header...)
# With ZR_PRECOMPILED_HEADERS, g++ compiles the headers of a set once, and the targets that reuse the set include the
# result before anything else. clang++ requires the same definitions of all of them, so that it gets none.
function(zr_compile_headers set)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES;HEADERS")
    if(NOT (ZR_PRECOMPILED_HEADERS AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU"))
        return()
    endif()
    set(source ${CMAKE_CURRENT_BINARY_DIR}/zr_headers_${set}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "")
    add_library(zr_headers_${set} OBJECT ${source})
    zr_target(zr_headers_${set})
    set_target_properties(zr_headers_${set} PROPERTIES AUTOMOC OFF POSITION_INDEPENDENT_CODE ON)
    target_link_libraries(zr_headers_${set} PRIVATE ${arg_LIBRARIES})
    target_precompile_headers(zr_headers_${set} PRIVATE ${arg_HEADERS})
endfunction()

# A set that was not compiled is not reused: the sources include their headers anyway.
function(zr_reuse_headers target set)
    if(TARGET zr_headers_${set} AND NOT target MATCHES "^zr_headers_")
        set_target_properties(${target} PROPERTIES PRECOMPILE_HEADERS_REUSE_FROM zr_headers_${set})
        # The set is compiled so; programs and static libraries are not where Qt leaves the choice to the compiler.
        target_compile_options(${target} PRIVATE -fPIC)
    endif()
endfunction()

# A shared library of ours exports what the list names, and needs nothing that it does not link. A static one fits into
# programs, shared libraries and plugins.
function(zr_export_list target list)
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "STATIC_LIBRARY")
        return()
    endif()
    target_link_options(${target} PRIVATE LINKER:--version-script,${list})
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${list})
    # Clang links its sanitizers into the program alone, so that a library leaves them undefined.
    if(NOT (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_FLAGS MATCHES "-fsanitize"))
        target_link_options(${target} PRIVATE LINKER:--no-undefined)
    endif()
endfunction()
