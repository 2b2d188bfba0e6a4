// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/// Bytes that this process can still take: the machine's free memory, or less where the process is
/// held to a limit of its own.
std::uint64_t availableMemory();
