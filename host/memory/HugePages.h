// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

/// Asks the system to back a large piece of fresh memory by huge pages, which saves most of the
/// address look-ups where it is used at random. Without effect where the system has none, and on
/// what does not fill a whole huge page.
void preferHugePages(void* memory, std::size_t bytes);

/// Makes room in an empty list, on huge pages where it is large.
template <typename T>
void reserveOnHugePages(std::vector<T>& list, std::size_t count)
{
    list.reserve(count);
    preferHugePages(list.data(), list.capacity() * sizeof(T));
}
