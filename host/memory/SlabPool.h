// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/memory/RecordSlabs.h"

#include <cstdint>
#include <mutex>

namespace RecordSlabs {

/// A free record in a thread's cache, linked into a list through its own memory.
struct FreeRecord
{
    FreeRecord* next;
};

/// A contiguous piece of a slab.
struct Run
{
    std::byte* begin = nullptr;
    std::size_t count = 0;
};

/// A contiguous free piece of a slab, described in its first record. The other records of the piece
/// are not touched.
struct FreeRun
{
    FreeRun* next;
    std::size_t count;
};

/// The slabs of one record size. Records that threads keep in their caches count as in use.
class SlabPool
{
public:
    explicit SlabPool(std::size_t recordSize);

    /// Takes at least one and at most `wanted` records.
    Run take(std::size_t wanted);

    /// Takes exactly `count` records as runs.
    void takeRuns(std::size_t count, std::vector<Run>& runs);

    void giveBack(FreeRecord* list);
    void giveBack(Run run);
    void giveBackAll(void* const* records, std::size_t count);

    Footprint footprint();
    /// Gives the slabs without records back to the system.
    void giveKeptBack();

private:
    struct Slab;

    Slab* slabOf(void* record) const;
    Slab* freshSlab();
    Run bump(std::size_t wanted);
    Run takePartial(std::size_t wanted);
    void free(Run run);
    void linkPartial(Slab* slab);
    void unlinkPartial(Slab* slab);
    void retire(Slab* slab);

    std::mutex m_guard;
    std::size_t m_recordSize;
    std::size_t m_capacity;
    Slab* m_open = nullptr;
    Slab* m_partial = nullptr;
    Slab* m_free = nullptr;
    std::size_t m_slabsInUse = 0;
    std::size_t m_slabsKept = 0;
};

}  // namespace RecordSlabs
