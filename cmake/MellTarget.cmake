# SPDX-License-Identifier: GPL-3.0-or-later
# What every target of this project has in common.

include(${CMAKE_CURRENT_LIST_DIR}/Sanitizers.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/PrecompiledHeaders.cmake)

# Heavy template code (CGAL) takes over a gigabyte per compiler process, so such files are built one
# at a time.
set_property(GLOBAL APPEND PROPERTY JOB_POOLS heavy=1)

function(mell_target target)
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR})
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wno-unused-parameter)
  mell_sanitize(${target})
  # A library calls its own functions, also where a program has one of the same signature.
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "SHARED_LIBRARY")
    target_link_options(${target} PRIVATE -Wl,-Bsymbolic-functions)
  endif()
  # The libraries lie beside the programs in the build tree; for where they are installed see InstalledPlaces.
  set_target_properties(${target} PROPERTIES BUILD_RPATH "$ORIGIN")
endfunction()
