# SPDX-License-Identifier: GPL-3.0-or-later

# compressed(SOURCE FILE) makes FILE of SOURCE by gzip, the same bytes each time, with the build.
find_program(GZIP gzip REQUIRED)
function(compressed source file)
  add_custom_command(OUTPUT ${file} COMMAND sh -c "\"$1\" -9nc \"$2\" > \"$3\"" sh ${GZIP} ${source} ${file}
                     DEPENDS ${source} VERBATIM)
endfunction()
