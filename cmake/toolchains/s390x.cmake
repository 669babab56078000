# SPDX-License-Identifier: LGPL-2.1-or-later
include(${CMAKE_CURRENT_LIST_DIR}/linux.cmake)
zr_cross(s390x s390x-linux-gnu qemu-s390x)
