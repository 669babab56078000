# SPDX-License-Identifier: LGPL-2.1-or-later
# What finds the installed library: find_package(ZrSupplyDatabase) gives ZrSupplyDatabase::ZrSupplyDatabase, with
# COMPONENTS Guard or Kit also ZrSupplyDatabase::Guard or ZrSupplyDatabase::Kit, and pkg-config knows zrsupplydatabase,
# zrsupplyguard and zrsupplykit. All work from wherever the prefix is moved to, and for static libraries too.
include(CMakePackageConfigHelpers)

set(zr_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ZrSupplyDatabase)

# The oldest release of Qt that what was built runs with.
set(zr_qt_version ${Qt6Core_VERSION_MAJOR}.${Qt6Core_VERSION_MINOR})
set(zr_static OFF)
if(zr_library_type STREQUAL "STATIC")
    set(zr_static ON)
endif()
set(zr_foreign_logger OFF)
if(CuteLogger_FOUND)
    set(zr_foreign_logger ON)
endif()

zr_install(Development EXPORT ZrSupplyDatabaseTargets
    NAMESPACE ZrSupplyDatabase::
    DESTINATION ${zr_package_dir})

if(TARGET ZrSupplyKit)
    zr_install(Development EXPORT ZrSupplyKitTargets
        NAMESPACE ZrSupplyDatabase::
        DESTINATION ${zr_package_dir})
endif()

if(TARGET ZrSupplyGuard)
    zr_install(Development EXPORT ZrSupplyGuardTargets
        NAMESPACE ZrSupplyDatabase::
        DESTINATION ${zr_package_dir})
endif()

configure_package_config_file(
    ${CMAKE_CURRENT_LIST_DIR}/ZrSupplyDatabaseConfig.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/ZrSupplyDatabaseConfig.cmake
    INSTALL_DESTINATION ${zr_package_dir})
write_basic_package_version_file(
    ${CMAKE_CURRENT_BINARY_DIR}/ZrSupplyDatabaseConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
zr_install(Development FILES
    ${CMAKE_CURRENT_BINARY_DIR}/ZrSupplyDatabaseConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/ZrSupplyDatabaseConfigVersion.cmake
    DESTINATION ${zr_package_dir})

# What the package of static libraries looks for.
if(zr_static AND zr_foreign_logger)
    zr_install(Development FILES ${CMAKE_CURRENT_LIST_DIR}/FindCuteLogger.cmake DESTINATION ${zr_package_dir})
endif()
if(zr_static AND TARGET ZrSupplyGuard)
    zr_install(Development FILES ${CMAKE_CURRENT_LIST_DIR}/ZrSqlite.cmake DESTINATION ${zr_package_dir})
endif()

# Relative to the .pc file's own folder; folders that were given outside the prefix are written out.
set(zr_pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
foreach(kind IN ITEMS LIBDIR INCLUDEDIR)
    if(IS_ABSOLUTE "${CMAKE_INSTALL_${kind}}")
        set(zr_pc_${kind} "${CMAKE_INSTALL_${kind}}")
    else()
        set(zr_pc_${kind} "\${prefix}/${CMAKE_INSTALL_${kind}}")
    endif()
endforeach()
if(IS_ABSOLUTE "${zr_pc_dir}")
    set(zr_pc_prefix "${CMAKE_INSTALL_PREFIX}")
else()
    file(RELATIVE_PATH zr_pc_up /prefix/${zr_pc_dir} /prefix)
    string(REGEX REPLACE "/$" "" zr_pc_up "${zr_pc_up}")
    set(zr_pc_prefix "\${pcfiledir}/${zr_pc_up}")
endif()
# What static libraries are linked with is named openly: pkg-config --static would also name what a shared Qt is linked with,
# whose development files are not there. A logger that is installed elsewhere is named by its folder.
set(zr_pc_logger)
set(zr_pc_nodelete)
set(zr_pc_private "\nRequires.private:")
if(zr_static)
    set(zr_pc_private ",")
    set(zr_pc_logger " -lCuteLogger")
    set(zr_pc_nodelete " -Wl,-z,nodelete")
    if(CuteLogger_LIBRARY)
        cmake_path(GET CuteLogger_LIBRARY PARENT_PATH folder)
        string(PREPEND zr_pc_logger " -L${folder}")
    endif()
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/zrsupplydatabase.pc.in
    ${CMAKE_CURRENT_BINARY_DIR}/zrsupplydatabase.pc @ONLY)
zr_install(Development FILES ${CMAKE_CURRENT_BINARY_DIR}/zrsupplydatabase.pc DESTINATION ${zr_pc_dir})
if(TARGET ZrSupplyGuard)
    configure_file(${PROJECT_SOURCE_DIR}/guard/zrsupplyguard.pc.in
        ${CMAKE_CURRENT_BINARY_DIR}/zrsupplyguard.pc @ONLY)
    zr_install(Development FILES ${CMAKE_CURRENT_BINARY_DIR}/zrsupplyguard.pc DESTINATION ${zr_pc_dir})
endif()
if(TARGET ZrSupplyKit)
    configure_file(${PROJECT_SOURCE_DIR}/kit/zrsupplykit.pc.in
        ${CMAKE_CURRENT_BINARY_DIR}/zrsupplykit.pc @ONLY)
    zr_install(Development FILES ${CMAKE_CURRENT_BINARY_DIR}/zrsupplykit.pc DESTINATION ${zr_pc_dir})
endif()

zr_install(Runtime FILES ${PROJECT_SOURCE_DIR}/LICENSES/LGPL-2.1-or-later.txt
    DESTINATION ${CMAKE_INSTALL_DATADIR}/licenses/zrsupplydatabase RENAME LICENSE)

include(ZrSbom)
