// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

/// Asks the system to back a large piece of fresh memory by huge pages, which saves most of the
/// address look-ups where it is used at random. Without effect where the system has none, and on
/// what does not fill a whole huge page.
void preferHugePages(void* memory, std::size_t bytes);
