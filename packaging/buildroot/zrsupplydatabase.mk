################################################################################
#
# zrsupplydatabase
#
# A starting point, not built by this project: no Buildroot is at hand here. Its
# CMake options are held to CMakeLists.txt by the test packaging_recipes.
#
################################################################################

ZRSUPPLYDATABASE_VERSION = 1.0.0
# Your mirror of the project's source archive.
ZRSUPPLYDATABASE_SITE = https://sources.example/zrsupplydatabase
ZRSUPPLYDATABASE_LICENSE = LGPL-2.1+
ZRSUPPLYDATABASE_LICENSE_FILES = LICENSE
ZRSUPPLYDATABASE_INSTALL_STAGING = YES
ZRSUPPLYDATABASE_DEPENDENCIES = host-pkgconf qt6base
# Buildroot itself chooses BUILD_SHARED_LIBS, from BR2_STATIC_LIBS.
ZRSUPPLYDATABASE_CONF_OPTS = \
	-DBUILD_TESTING=OFF \
	-DZR_BUILD_EXAMPLES=OFF \
	-DZR_BUILD_PANEL=OFF \
	-DCMAKE_SKIP_INSTALL_RPATH=ON

ifeq ($(BR2_PACKAGE_ZRSUPPLYDATABASE_GUARD),y)
ZRSUPPLYDATABASE_CONF_OPTS += -DZR_BUILD_GUARD=ON
ZRSUPPLYDATABASE_DEPENDENCIES += sqlite
else
ZRSUPPLYDATABASE_CONF_OPTS += -DZR_BUILD_GUARD=OFF
endif

ifeq ($(BR2_PACKAGE_ZRSUPPLYDATABASE_TOOLS),y)
ZRSUPPLYDATABASE_CONF_OPTS += -DZR_BUILD_TOOLS=ON
ZRSUPPLYDATABASE_DEPENDENCIES += libedit sqlite host-sqlite host-python3
else
ZRSUPPLYDATABASE_CONF_OPTS += -DZR_BUILD_TOOLS=OFF
endif

$(eval $(cmake-package))
