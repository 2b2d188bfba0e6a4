# SPDX-License-Identifier: GPL-3.0-or-later
# The component freecut: the command line, with the manual page and the completions that it prints itself.
mell_finds_libraries(freecut ${CMAKE_INSTALL_BINDIR})
install(TARGETS freecut DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT freecut)

set(printed ${CMAKE_CURRENT_BINARY_DIR}/printed)
file(MAKE_DIRECTORY ${printed})
# print_by_freecut(FILE ARGUMENT...) makes a file of what freecut prints.
function(print_by_freecut file)
  add_custom_command(OUTPUT ${printed}/${file}
    COMMAND sh -c "file=$1; shift; \"$@\" > \"$file\"" sh ${printed}/${file} $<TARGET_FILE:freecut> ${ARGN}
    DEPENDS freecut VERBATIM)
endfunction()
print_by_freecut(freecut completion bash)
print_by_freecut(_freecut completion zsh)
print_by_freecut(freecut.fish completion fish)
print_by_freecut(freecut.1 manual)
compressed(${printed}/freecut.1 ${printed}/freecut.1.gz)
add_custom_target(freecut_texts ALL
                  DEPENDS ${printed}/freecut ${printed}/_freecut ${printed}/freecut.fish ${printed}/freecut.1.gz)

set(data ${CMAKE_INSTALL_DATADIR})
install(FILES ${printed}/freecut DESTINATION ${data}/bash-completion/completions COMPONENT freecut)
install(FILES ${printed}/_freecut DESTINATION ${data}/zsh/vendor-completions COMPONENT freecut)
install(FILES ${printed}/freecut.fish DESTINATION ${data}/fish/vendor_completions.d COMPONENT freecut)
install(FILES ${printed}/freecut.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT freecut)
