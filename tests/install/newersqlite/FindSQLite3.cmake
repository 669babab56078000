# SPDX-License-Identifier: LGPL-2.1-or-later
# SQLite as CMake 4.3 and later name it, without the former target: stands for that release in the tests.
find_path(SQLite3_INCLUDE_DIR sqlite3.h)
find_library(SQLite3_LIBRARY sqlite3)
if(SQLite3_INCLUDE_DIR)
    file(STRINGS ${SQLite3_INCLUDE_DIR}/sqlite3.h line REGEX "^#define SQLITE_VERSION ")
    string(REGEX MATCH "[0-9.]+" SQLite3_VERSION "${line}")
endif()
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(SQLite3
    REQUIRED_VARS SQLite3_INCLUDE_DIR SQLite3_LIBRARY VERSION_VAR SQLite3_VERSION)
if(SQLite3_FOUND AND NOT TARGET SQLite3::SQLite3)
    add_library(SQLite3::SQLite3 UNKNOWN IMPORTED)
    set_target_properties(SQLite3::SQLite3 PROPERTIES
        IMPORTED_LOCATION ${SQLite3_LIBRARY} INTERFACE_INCLUDE_DIRECTORIES ${SQLite3_INCLUDE_DIR})
endif()
