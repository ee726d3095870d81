# Where the program's own files lie, seen from the folder of the program. The build tree has the same
# layout as the installed one.

set(DRIFTBOX_RESOURCES ${CMAKE_INSTALL_DATADIR}/driftbox)
set(DRIFTBOX_MODULES ${CMAKE_INSTALL_LIBDIR}/driftbox)
file(RELATIVE_PATH DRIFTBOX_RESOURCES_FROM_PROGRAM
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/driftbox)
file(RELATIVE_PATH DRIFTBOX_MODULES_FROM_PROGRAM
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/driftbox)
