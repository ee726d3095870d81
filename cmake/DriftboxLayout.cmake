# Where the program finds its own files, relative to its executable. The build tree is laid out like
# the installation.

set(DRIFTBOX_RESOURCES ${CMAKE_INSTALL_DATADIR}/driftbox)
set(DRIFTBOX_MODULES ${CMAKE_INSTALL_LIBDIR}/driftbox)
file(RELATIVE_PATH DRIFTBOX_RESOURCES_FROM_PROGRAM
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/driftbox)
file(RELATIVE_PATH DRIFTBOX_MODULES_FROM_PROGRAM
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/driftbox)
