# SPDX-License-Identifier: GPL-3.0-or-later
# Where things are installed, and how programs and libraries find each other there. All paths are relative, so that a
# tree works wherever it is unpacked.

# Debian keeps libraries in a folder per architecture below any prefix.
if(NOT DEFINED CMAKE_INSTALL_LIBDIR AND EXISTS /etc/debian_version AND CMAKE_LIBRARY_ARCHITECTURE)
  set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Folder of the libraries")
endif()
include(GNUInstallDirs)

# The cutting commands, and below it the modules of others.
set(mell_module_folder ${CMAKE_INSTALL_LIBDIR}/orbe)
set(mell_header_folder ${CMAKE_INSTALL_INCLUDEDIR}/mell)
set(mell_python_folder lib/python3/dist-packages)
file(RELATIVE_PATH mell_modules_from_bin /${CMAKE_INSTALL_BINDIR} /${mell_module_folder})

# mell_finds_libraries(TARGET FOLDER) lets a target that is installed in FOLDER find the libraries.
function(mell_finds_libraries target folder)
  set(places)
  foreach(place ${CMAKE_INSTALL_LIBDIR} ${mell_module_folder})
    file(RELATIVE_PATH relative /${folder} /${place})
    list(APPEND places "$ORIGIN/${relative}")
  endforeach()
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "${places}")
endfunction()
