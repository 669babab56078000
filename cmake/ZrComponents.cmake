# SPDX-License-Identifier: LGPL-2.1-or-later
# What is installed belongs to a component: Runtime, Development, Guard, Kit, Tools or Panel.
#   cmake --install build/release --component Runtime
# With ZR_INSTALL off, nothing is installed.

# zr_install(component FILES|DIRECTORY|TARGETS|EXPORT ...)
function(zr_install component)
    if(ZR_INSTALL)
        install(${ARGN} COMPONENT ${component})
    endif()
endfunction()

# The library goes to its component; what only linking needs goes to Development.
function(zr_install_library target component export)
    if(ZR_INSTALL)
        install(TARGETS ${target} EXPORT ${export}
            LIBRARY COMPONENT ${component} NAMELINK_COMPONENT Development
            ARCHIVE COMPONENT Development)
    endif()
endfunction()
