// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// g++ defines a macro where the address sanitizer is built in, clang++ answers a question.
#if defined(__SANITIZE_ADDRESS__)
#define MELL_CHECKS_LEAKS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define MELL_CHECKS_LEAKS
#endif
#endif

#if defined(MELL_CHECKS_LEAKS)
#include <sanitizer/lsan_interface.h>
#endif

/// What this thread allocates while one of these lives may leak without a word: for a call of a
/// library that is known to leak where its frames cannot be told from others.
class UncheckedLeaks
{
public:
#if defined(MELL_CHECKS_LEAKS)
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
