// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <vector>

/// The allocator behind UVertex and UTriangle. Records lie in slabs of one huge page, grouped by
/// type; a slab whose records are all free is kept for the next job within a bound and otherwise
/// given back to the system. All operations are thread-safe, and a record may be freed on another
/// thread than the one that made it.
///
/// Under the address sanitizer every record is a heap block of its own, so that wrong use is seen.
///
/// See docs/decisions/0002-records-on-slabs.md.
namespace RecordSlabs {

/// Memory for one record. This is what `new` uses.
template <typename Record>
void* allocate();

template <typename Record>
void release(void* record) noexcept;

/// Raw memory for `count` records, in runs that are contiguous and in ascending order where a slab
/// allows. The caller constructs a record in every place; each is then a record like any other.
///
/// cost  one lock, whatever the count
template <typename Record>
std::vector<std::span<Record>> allocateRuns(std::size_t count);

/// Frees the records of one run, or raw memory from a run.
template <typename Record>
void releaseRun(std::span<Record> run) noexcept;

/// Frees many records at once; null entries are skipped. Whole slabs are freed without touching the
/// records in them.
template <typename Record>
void releaseAll(std::span<Record* const> records) noexcept;

/// What the process holds for one record type, in bytes: in use and kept for the next job.
struct Footprint
{
    std::size_t inUse = 0;
    std::size_t kept = 0;
};

template <typename Record>
Footprint footprint();

/// Gives what is kept for the next job back to the system.
template <typename Record>
void giveKeptBack();

}  // namespace RecordSlabs
