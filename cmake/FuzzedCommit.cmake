# SPDX-License-Identifier: GPL-3.0-or-later
# Writes the commit of SOURCE into the header HEADER, which is left alone where it says so already.
execute_process(COMMAND git describe --always --dirty --abbrev=12 WORKING_DIRECTORY ${SOURCE}
                OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT commit)
  set(commit unknown)
endif()
file(CONFIGURE OUTPUT ${HEADER} CONTENT "#define FUZZED_COMMIT \"${commit}\"\n")
