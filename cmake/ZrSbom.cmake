# SPDX-License-Identifier: LGPL-2.1-or-later
# The bill of materials: what is installed and what it is linked with, as CycloneDX. A test compares it with what the built
# programs and libraries need.
set(zr_sbom_components)
set(zr_sbom_dependencies)

# zr_sbom(name type version licence [SONAMES file...] [NEEDS name...])
# The file names are those by which programs need a component; NEEDS is for components of ours.
function(zr_sbom name type version licence)
    cmake_parse_arguments(PARSE_ARGV 4 arg "" "" "SONAMES;NEEDS")
    set(lines "\"bom-ref\": \"${name}\"" "\"type\": \"${type}\"" "\"name\": \"${name}\"")
    if(version)
        list(APPEND lines "\"version\": \"${version}\"" "\"purl\": \"pkg:generic/${name}@${version}\"")
    endif()
    list(APPEND lines "\"licenses\": [{\"expression\": \"${licence}\"}]")
    list(TRANSFORM arg_SONAMES REPLACE "(.+)" "{\"name\": \"soname\", \"value\": \"\\1\"}")
    list(JOIN arg_SONAMES ", " sonames)
    list(APPEND lines "\"properties\": [${sonames}]")
    list(JOIN lines ",\n      " text)
    list(APPEND zr_sbom_components "    {\n      ${text}\n    }")
    set(zr_sbom_components "${zr_sbom_components}" PARENT_SCOPE)
    list(TRANSFORM arg_NEEDS REPLACE "(.+)" "\"\\1\"")
    list(JOIN arg_NEEDS ", " needs)
    list(APPEND zr_sbom_dependencies "    {\"ref\": \"${name}\", \"dependsOn\": [${needs}]}")
    set(zr_sbom_dependencies "${zr_sbom_dependencies}" PARENT_SCOPE)
endfunction()

# Of others. Qt is released as a whole.
set(qt_licence "LGPL-3.0-only OR GPL-2.0-only OR GPL-3.0-only")
zr_sbom(qtbase library ${Qt6Core_VERSION} "${qt_licence}" SONAMES libQt6Core.so.6 libQt6Sql.so.6 libQt6Gui.so.6)
zr_sbom(gcc library "" "GPL-3.0-or-later WITH GCC-exception-3.1" SONAMES libstdc++.so.6 libgcc_s.so.1)
zr_sbom(glibc library "" "LGPL-2.1-or-later" SONAMES libc.so.6 libm.so.6
    ld-linux-x86-64.so.2 ld-linux-aarch64.so.1 ld-linux-armhf.so.3 ld64.so.1)
set(runtime qtbase gcc glibc)
if(CuteLogger_FOUND)
    zr_sbom(cutelogger library "" "LGPL-2.1-only" SONAMES libCuteLogger.so libCuteLogger.so.1)
else()
    zr_sbom(cutelogger library ${PROJECT_VERSION} "LGPL-2.1-or-later" SONAMES libCuteLogger.so.1 NEEDS ${runtime})
endif()

# Ours.
zr_sbom(zrsupplydatabase library ${PROJECT_VERSION} "LGPL-2.1-or-later" SONAMES libzrsupplydatabase.so.1
    NEEDS cutelogger ${runtime})
if(TARGET ZrSupplyGuard)
    include(ZrSqlite)
    zr_sbom(sqlite library ${SQLite3_VERSION} "blessing" SONAMES libsqlite3.so.0)
    zr_sbom(zrsupplyguard library ${PROJECT_VERSION} "LGPL-2.1-or-later" SONAMES libzrsupplyguard.so.1
        NEEDS sqlite ${runtime})
endif()
if(TARGET ZrSupplyKit)
    zr_sbom(zrsupplykit library ${PROJECT_VERSION} "LGPL-2.1-or-later" SONAMES libzrsupplykit.so.1
        NEEDS zrsupplydatabase ${runtime})
endif()
set(tools zrsupplydatabase zrsupplyguard zrsupplykit sqlite libedit ${runtime})
if(TARGET zrsupply)
    zr_sbom(libedit library "${LIBEDIT_VERSION}" "BSD-3-Clause" SONAMES libedit.so.2)
    zr_sbom(zrsupply application ${PROJECT_VERSION} "LGPL-2.1-or-later" NEEDS ${tools})
endif()
if(TARGET zrsupply-panel)
    zr_sbom(qtdeclarative library ${Qt6Core_VERSION} "${qt_licence}" SONAMES libQt6Quick.so.6 libQt6Qml.so.6)
    zr_sbom(qtsvg library ${Qt6Core_VERSION} "${qt_licence}" SONAMES libQt6Svg.so.6)
    zr_sbom(zrsupply-panel application ${PROJECT_VERSION} "LGPL-2.1-or-later" NEEDS qtdeclarative qtsvg ${tools})
endif()

list(JOIN zr_sbom_components ",\n" components)
list(JOIN zr_sbom_dependencies ",\n" dependencies)
file(CONFIGURE OUTPUT zrsupplydatabase.cdx.json @ONLY CONTENT [[{
  "bomFormat": "CycloneDX",
  "specVersion": "1.5",
  "version": 1,
  "metadata": {
    "component": {
      "bom-ref": "@PROJECT_NAME@",
      "type": "library",
      "name": "@PROJECT_NAME@",
      "version": "@PROJECT_VERSION@",
      "licenses": [{"expression": "LGPL-2.1-or-later"}]
    }
  },
  "components": [
@components@
  ],
  "dependencies": [
@dependencies@
  ]
}
]])
zr_install(Runtime FILES ${CMAKE_CURRENT_BINARY_DIR}/zrsupplydatabase.cdx.json DESTINATION ${CMAKE_INSTALL_DATADIR}/sbom)
