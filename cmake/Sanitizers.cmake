# SPDX-License-Identifier: GPL-3.0-or-later
# MELL_SANITIZE is a list for -fsanitize, such as "address,undefined" or "thread".

set(MELL_SANITIZE "" CACHE STRING "Sanitizers to build with")

function(mell_sanitize target)
  if(MELL_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${MELL_SANITIZE} -fno-omit-frame-pointer
                                             -fno-sanitize-recover=undefined)
    # Compilers differ in how they tell which sanitizer is built in; these names are the same with each.
    if(MELL_SANITIZE MATCHES "address")
      target_compile_definitions(${target} PRIVATE MELL_ADDRESS_SANITIZER)
    endif()
    if(MELL_SANITIZE MATCHES "thread")
      target_compile_definitions(${target} PRIVATE MELL_THREAD_SANITIZER)
    endif()
    target_link_options(${target} PRIVATE -fsanitize=${MELL_SANITIZE})
  endif()
endfunction()
