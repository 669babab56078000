# A starting point, not built by this project: no bitbake is at hand here. Its CMake options are held to CMakeLists.txt by the
# test packaging_recipes. It needs the layer meta-qt6.
SUMMARY = "Media rolls and ribbons of a thermal-transfer label printer: what they are, and what is installed"
LICENSE = "LGPL-2.1-or-later"
LIC_FILES_CHKSUM = "file://LICENSE;md5=1798505fcdec0959d8672648ea8f5323"

# Your mirror of the project's repository, and the commit that you build.
SRC_URI = "git://git.example/zrsupplydatabase.git;protocol=https;branch=main"
SRCREV = "${AUTOREV}"
S = "${WORKDIR}/git"

inherit qt6-cmake pkgconfig

DEPENDS = "qtbase qtbase-native"
# The SQLite driver is a plugin that is loaded by its name. qtbase has to be built with its sqlite option.
RDEPENDS:${PN} += "qtbase-plugins"

# A CuteLogger of the image is taken where there is one, otherwise the stand-in is built.
PACKAGECONFIG ??= "guard"
PACKAGECONFIG[guard] = "-DZR_BUILD_GUARD=ON,-DZR_BUILD_GUARD=OFF,sqlite3"
PACKAGECONFIG[tools] = "-DZR_BUILD_TOOLS=ON,-DZR_BUILD_TOOLS=OFF,libedit sqlite3 sqlite3-native python3-native"
EXTRA_OECMAKE += "-DBUILD_TESTING=OFF -DZR_BUILD_EXAMPLES=OFF -DZR_BUILD_PANEL=OFF -DCMAKE_SKIP_INSTALL_RPATH=ON"

FILES:${PN} += "${datadir}/licenses ${datadir}/sbom ${datadir}/zrsupplydatabase ${datadir}/zsh ${datadir}/fish"
