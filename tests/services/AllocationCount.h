// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

/// How often this thread has asked for memory: a measure of work that is the same on any machine.
/// Records of meshes, which have a pool of their own, do not count.
std::size_t allocationCount();
