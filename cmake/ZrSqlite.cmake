# SPDX-License-Identifier: LGPL-2.1-or-later
# The target SQLite3::SQLite3 with any CMake: releases before 4.3 call it SQLite::SQLite3, which later ones deprecate.
find_package(SQLite3 3.37 REQUIRED)
if(NOT TARGET SQLite3::SQLite3)
    add_library(SQLite3::SQLite3 INTERFACE IMPORTED)
    target_link_libraries(SQLite3::SQLite3 INTERFACE SQLite::SQLite3)
endif()
