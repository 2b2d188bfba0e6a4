# SPDX-License-Identifier: GPL-3.0-or-later
# The component orbe: the window, and how a desktop shows it and gives it files.
include(${CMAKE_CURRENT_LIST_DIR}/Compressed.cmake)

mell_finds_libraries(orbe ${CMAKE_INSTALL_BINDIR})
install(TARGETS orbe DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT orbe)

set(icons ${CMAKE_INSTALL_DATADIR}/icons)
install(FILES ${CMAKE_SOURCE_DIR}/resources/orbe.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT orbe)
install(DIRECTORY ${CMAKE_BINARY_DIR}/resources/pictures/hicolor DESTINATION ${icons} COMPONENT orbe)
install(FILES ${CMAKE_SOURCE_DIR}/resources/icons/program/orbe.svg
        DESTINATION ${icons}/hicolor/scalable/apps COMPONENT orbe)
install(FILES orbe-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME orbe.xml COMPONENT orbe)
install(FILES io.orbe.orbe.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT orbe)

compressed(${CMAKE_CURRENT_SOURCE_DIR}/orbe.1 ${CMAKE_CURRENT_BINARY_DIR}/orbe.1.gz)
add_custom_target(orbe_manual ALL DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/orbe.1.gz)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/orbe.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT orbe)
