# SPDX-License-Identifier: GPL-3.0-or-later
# The component libmell-dev: what a module of somebody else is built with.
include(CMakePackageConfigHelpers)

install(DIRECTORY ${CMAKE_SOURCE_DIR}/platform DESTINATION ${mell_header_folder} COMPONENT libmell-dev
        FILES_MATCHING PATTERN "*.h")

set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Mell)
configure_package_config_file(MellConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/MellConfig.cmake
                              INSTALL_DESTINATION ${config_folder} PATH_VARS mell_module_folder)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/MellConfigVersion.cmake
                                 VERSION ${PROJECT_VERSION} COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/MellConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/MellConfigVersion.cmake
        DESTINATION ${config_folder} COMPONENT libmell-dev)
install(EXPORT Mell NAMESPACE Mell:: FILE MellTargets.cmake DESTINATION ${config_folder} COMPONENT libmell-dev)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/examples/module
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libmell-dev/examples COMPONENT libmell-dev)
