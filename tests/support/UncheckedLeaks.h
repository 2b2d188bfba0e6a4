// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#if defined(MELL_ADDRESS_SANITIZER)
#include <sanitizer/lsan_interface.h>
#endif

/// What this thread allocates while one of these lives may leak without a word: for a call of a
/// library that is known to leak where its frames cannot be told from others.
class UncheckedLeaks
{
public:
#if defined(MELL_ADDRESS_SANITIZER)
    UncheckedLeaks()
    {
        __lsan_disable();
    }
    ~UncheckedLeaks()
    {
        __lsan_enable();
    }
#else
    UncheckedLeaks() {}
#endif
    UncheckedLeaks(UncheckedLeaks const&) = delete;
    UncheckedLeaks& operator=(UncheckedLeaks const&) = delete;
};
