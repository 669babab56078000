# SPDX-License-Identifier: LGPL-2.1-or-later
include(${CMAKE_CURRENT_LIST_DIR}/linux.cmake)
zr_cross(arm arm-linux-gnueabihf qemu-arm)
