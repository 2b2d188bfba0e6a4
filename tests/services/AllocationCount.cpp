// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t allocations = 0;

}  // namespace

std::size_t allocationCount()
{
    return allocations;
}

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* const memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, std::nothrow_t const&) noexcept
{
    ++allocations;
    return std::malloc(size > 0 ? size : 1);
}

void operator delete(void* memory, std::nothrow_t const&) noexcept
{
    std::free(memory);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
