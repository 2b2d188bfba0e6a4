# SPDX-License-Identifier: GPL-3.0-or-later

# number_in(FILE MACRO OUT) takes what a header defines, without quotes.
function(number_in file macro out)
  file(STRINGS ${file} line REGEX "define +${macro}[ \t]" LIMIT_COUNT 1)
  string(REGEX REPLACE ".*${macro}[ \t]+\"?([0-9.]+)\"?.*" "\\1" number "${line}")
  set(${out} ${number} PARENT_SCOPE)
endfunction()

# mell_library_versions(OUT) lists the libraries that the host is made with, as "CGAL 5.5, zlib 1.2".
function(mell_library_versions out)
  find_package(CGAL 5.5 REQUIRED)
  find_package(ZLIB REQUIRED)
  find_path(LIBDEFLATE_INCLUDE_DIR libdeflate.h REQUIRED)
  number_in(${LIBDEFLATE_INCLUDE_DIR}/libdeflate.h LIBDEFLATE_VERSION_STRING deflate)
  find_path(POLYCLIPPING_INCLUDE_DIR polyclipping/clipper.hpp REQUIRED)
  number_in(${POLYCLIPPING_INCLUDE_DIR}/polyclipping/clipper.hpp CLIPPER_VERSION clipper)
  foreach(part MAJOR MINOR MICRO)
    number_in(${LIB3MF_INCLUDE_DIR}/Model/COM/NMR_COMVersion.h NMR_APIVERSION_INTERFACE_${part} ${part})
  endforeach()
  set(${out} "CGAL ${CGAL_VERSION}, oneTBB ${TBB_VERSION}, Clipper ${clipper}, \
lib3mf ${MAJOR}.${MINOR}.${MICRO}, zlib ${ZLIB_VERSION_STRING}, libdeflate ${deflate}, CLI11 ${CLI11_VERSION}, \
nlohmann-json ${nlohmann_json_VERSION}" PARENT_SCOPE)
endfunction()
