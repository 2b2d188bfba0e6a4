# SPDX-License-Identifier: GPL-3.0-or-later
# One Debian package for each component.
include(${CMAKE_CURRENT_LIST_DIR}/Compressed.cmake)
find_program(DPKG dpkg)
if(NOT DPKG)
  message(STATUS "The packages are left out, since this is no Debian.")
  return()
endif()

# Every package has its licence and its changes.
compressed(${CMAKE_SOURCE_DIR}/CHANGELOG.md ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz)
compressed(${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz)
add_custom_target(changelogs ALL
  DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz)
foreach(package IN LISTS packages)
  install(FILES debian/copyright ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz
                ${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian.gz
          DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${package})
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orbe)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Orbe authors <orbe@example.org>")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL ${packages})
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE orbe)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

# debian_package(PACKAGE SECTION SUMMARY TEXT DEPENDS) adds to what dpkg-shlibdeps finds.
macro(debian_package package section summary text depends)
  string(TOUPPER ${package} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${summary}\n${text}")
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${depends}")
endmacro()

set(same "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
debian_package(orbe graphics "cut triangle-mesh parts for 3D printing"
"Cuts parts by planes and by drawn shapes into closed pieces, and joins them
again by pins, holes and lap joints. Reads and writes STL, OBJ, PLY, OFF and
3MF files."
  "libmell1 ${same}")
debian_package(freecut graphics "cut triangle-mesh parts from the command line"
"Cuts parts by planes and shapes into closed pieces, combines, checks and
repairs them, one by one or in lists of jobs, with reports for other programs."
  "libmell1 ${same}")
debian_package(libmell1 libs "libraries of orbe and freecut"
"Geometry, file formats, documents and cuts, which the window orbe, the command
line freecut and the Python module share."
  "")
debian_package(libmell-dev libdevel "headers for modules of orbe"
"What a module of orbe builds on, what CMake needs to find it, and a small
module as an example."
  "libmell1 ${same}, qtbase5-dev, libpolyclipping-dev")
execute_process(COMMAND ${Python_EXECUTABLE} -c "import sys; print(f'python3 (>= 3.{sys.version_info[1]}), \
python3 (<< 3.{sys.version_info[1] + 1})')" OUTPUT_VARIABLE python OUTPUT_STRIP_TRAILING_WHITESPACE)
debian_package(python3-orbe python "cut triangle-mesh parts from Python"
"Does on NumPy arrays and files what freecut does: cuts, booleans, checks and
repairs, with the same pieces byte for byte."
  "libmell1 ${same}, ${python}, python3-numpy")

# What is made for these libraries needs just this version, until promises to modules are kept from one to the next.
set(control ${CMAKE_CURRENT_BINARY_DIR}/control)
file(WRITE ${control}/shlibs "libMellHost 1 libmell1 ${same}\n")
file(WRITE ${control}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBMELL1_PACKAGE_CONTROL_EXTRA ${control}/shlibs ${control}/triggers)
# Qt's own texts in other languages.
set(CPACK_DEBIAN_ORBE_PACKAGE_RECOMMENDS "qttranslations5-l10n")
include(CPack)
