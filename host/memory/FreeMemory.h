// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Gives memory that was freed, but that the allocator keeps, back to the machine: between the
/// stages of an operation that takes a lot of it.
///
/// cost  some milliseconds per hundred megabytes; little where nothing was freed
void giveFreeMemoryBack();

/// The same for records of meshes, which are otherwise kept for the next mesh: where none comes.
void giveFreeRecordsBack();
