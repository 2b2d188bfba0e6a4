// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/RecordSlabs.h"

#include <cstdint>
#include <mutex>

namespace RecordSlabs {

/// A free record, linked into a list through its own memory.
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

/// The slabs of one record size. Records that threads keep in their caches count as in use.
class SlabPool
{
public:
    explicit SlabPool(std::size_t recordSize);

    /// Takes at most `wanted` records, at least one: free ones of a partly used slab as a list, or
    /// a run of fresh ones.
    struct Refill
    {
        Run run;
        FreeRecord* list = nullptr;
        std::size_t listCount = 0;
    };
    Refill refill(std::size_t wanted);

    /// Takes exactly `count` records as runs, in ascending order within each slab.
    void takeRuns(std::size_t count, std::vector<Run>& runs);

    void giveBack(FreeRecord* list);
    void giveBack(Run run);
    void giveBackAll(void* const* records, std::size_t count);

    Footprint footprint();

private:
    struct Slab;

    Slab* slabOf(void* record) const;
    Slab* freshSlab();
    Run bump(std::size_t wanted);
    void freeOne(void* record);
    void freeGroup(Slab* slab, void* const* records, std::size_t count);
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
