# SPDX-License-Identifier: LGPL-2.1-or-later
# What the toolchain files of this folder share: Linux on another processor, built by Debian's cross compiler against
# the target's packages as multiarch installs them beside the host's (such as qt6-base-dev:arm64). The compiler names
# the folder of the target's libraries and CMake packages by itself; Qt's moc and rcc in them are the host's programs.
#
# zr_cross(PROCESSOR TRIPLET EMULATOR)
macro(zr_cross processor triplet emulator)
    set(CMAKE_SYSTEM_NAME Linux)
    set(CMAKE_SYSTEM_PROCESSOR ${processor})
    set(CMAKE_CXX_COMPILER ${triplet}-g++)
    set(PKG_CONFIG_EXECUTABLE ${triplet}-pkg-config)
    # Programs of the target run under qemu-user. Without it the build is the same, and its tests need a machine.
    find_program(ZR_EMULATOR NAMES ${emulator} ${emulator}-static)
    if(ZR_EMULATOR)
        set(CMAKE_CROSSCOMPILING_EMULATOR ${ZR_EMULATOR})
    endif()
endmacro()
