// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/memory/HugePages.h"

#include <cstdint>
#include <sys/mman.h>

void preferHugePages(void* memory, std::size_t bytes)
{
    constexpr std::uintptr_t pageBytes = std::uintptr_t(2) << 20;
    auto const begin = reinterpret_cast<std::uintptr_t>(memory);
    std::uintptr_t const first = (begin + pageBytes - 1) & ~(pageBytes - 1);
    std::uintptr_t const last = (begin + bytes) & ~(pageBytes - 1);
    if (first < last)
        madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
}
