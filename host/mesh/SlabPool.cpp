// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/SlabPool.h"

#include <algorithm>
#include <atomic>
#include <cassert>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace RecordSlabs {

namespace {

constexpr std::size_t slabBytes = std::size_t(2) << 20;
constexpr std::size_t headerBytes = 128;

/// Bytes of free slabs that all pools together keep: an eighth of the machine's memory, at most
/// 1.5 GiB, so that a job on millions of triangles finds its memory touched.
std::size_t keepLimit()
{
    static std::size_t const limit = [] {
        std::size_t const machine =
            std::size_t(sysconf(_SC_PHYS_PAGES)) * std::size_t(sysconf(_SC_PAGESIZE));
        return std::min(machine / 8, std::size_t(3) << 29);
    }();
    return limit;
}

std::atomic<std::size_t> keptBytes{0};

/// A slab-aligned piece of fresh memory, backed by a huge page where the system has one.
void* mapSlab()
{
    void* const raw = mmap(nullptr, 2 * slabBytes, PROT_READ | PROT_WRITE,
                           MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (raw == MAP_FAILED)
        throw std::bad_alloc();
    auto const begin = reinterpret_cast<std::uintptr_t>(raw);
    std::uintptr_t const aligned = (begin + slabBytes - 1) & ~(slabBytes - 1);
    if (aligned != begin)
        munmap(raw, aligned - begin);
    std::uintptr_t const end = begin + 2 * slabBytes;
    if (aligned + slabBytes != end)
        munmap(reinterpret_cast<void*>(aligned + slabBytes), end - aligned - slabBytes);
    void* const slab = reinterpret_cast<void*>(aligned);
    madvise(slab, slabBytes, MADV_HUGEPAGE);
    return slab;
}

}  // namespace

struct SlabPool::Slab
{
    std::size_t inUse = 0;
    std::size_t bumped = 0;
    FreeRecord* freeList = nullptr;
    Slab* previous = nullptr;
    Slab* next = nullptr;
    bool isPartial = false;

    std::byte* records() { return reinterpret_cast<std::byte*>(this) + headerBytes; }
};

SlabPool::SlabPool(std::size_t recordSize)
    : m_recordSize(recordSize), m_capacity((slabBytes - headerBytes) / recordSize)
{
    static_assert(sizeof(Slab) <= headerBytes);
}

SlabPool::Slab* SlabPool::slabOf(void* record) const
{
    return reinterpret_cast<Slab*>(reinterpret_cast<std::uintptr_t>(record) & ~(slabBytes - 1));
}

SlabPool::Slab* SlabPool::freshSlab()
{
    ++m_slabsInUse;
    if (m_free) {
        Slab* const slab = m_free;
        m_free = slab->next;
        --m_slabsKept;
        keptBytes -= slabBytes;
        return new (slab) Slab;
    }
    return new (mapSlab()) Slab;
}

Run SlabPool::bump(std::size_t wanted)
{
    if (!m_open || m_open->bumped == m_capacity)
        m_open = freshSlab();
    Run const run{m_open->records() + m_open->bumped * m_recordSize,
                  std::min(wanted, m_capacity - m_open->bumped)};
    m_open->bumped += run.count;
    m_open->inUse += run.count;
    return run;
}

SlabPool::Refill SlabPool::refill(std::size_t wanted)
{
    std::lock_guard const lock(m_guard);
    Refill taken;
    if (!m_partial) {
        taken.run = bump(wanted);
        return taken;
    }
    Slab* const slab = m_partial;
    FreeRecord* last = nullptr;
    taken.list = slab->freeList;
    for (FreeRecord* record = slab->freeList; record && taken.listCount < wanted;
         record = record->next) {
        last = record;
        ++taken.listCount;
    }
    slab->freeList = last->next;
    last->next = nullptr;
    slab->inUse += taken.listCount;
    if (!slab->freeList)
        unlinkPartial(slab);
    return taken;
}

void SlabPool::takeRuns(std::size_t count, std::vector<Run>& runs)
{
    std::lock_guard const lock(m_guard);
    while (count > 0) {
        Run const run = bump(count);
        runs.push_back(run);
        count -= run.count;
    }
}

void SlabPool::giveBack(FreeRecord* list)
{
    std::lock_guard const lock(m_guard);
    while (list) {
        FreeRecord* const next = list->next;
        freeOne(list);
        list = next;
    }
}

void SlabPool::giveBack(Run run)
{
    std::lock_guard const lock(m_guard);
    for (std::size_t i = 0; i < run.count; ++i)
        freeOne(run.begin + i * m_recordSize);
}

void SlabPool::giveBackAll(void* const* records, std::size_t count)
{
    // Other threads get their turn between the batches.
    constexpr std::size_t batch = 1 << 16;
    for (std::size_t begin = 0; begin < count; begin += batch) {
        std::size_t const end = std::min(count, begin + batch);
        std::lock_guard const lock(m_guard);
        for (std::size_t i = begin; i < end;) {
            if (!records[i]) {
                ++i;
                continue;
            }
            Slab* const slab = slabOf(records[i]);
            std::size_t const first = i;
            while (i < end && records[i] && slabOf(records[i]) == slab)
                ++i;
            freeGroup(slab, records + first, i - first);
        }
    }
}

void SlabPool::freeOne(void* record)
{
    freeGroup(slabOf(record), &record, 1);
}

void SlabPool::freeGroup(Slab* slab, void* const* records, std::size_t count)
{
    assert(slab->inUse >= count);
    slab->inUse -= count;
    if (slab->inUse == 0) {
        if (slab->isPartial)
            unlinkPartial(slab);
        retire(slab);
        return;
    }
    for (std::size_t i = 0; i < count; ++i)
        slab->freeList = new (records[i]) FreeRecord{slab->freeList};
    if (!slab->isPartial)
        linkPartial(slab);
}

void SlabPool::linkPartial(Slab* slab)
{
    slab->isPartial = true;
    slab->previous = nullptr;
    slab->next = m_partial;
    if (m_partial)
        m_partial->previous = slab;
    m_partial = slab;
}

void SlabPool::unlinkPartial(Slab* slab)
{
    slab->isPartial = false;
    (slab->previous ? slab->previous->next : m_partial) = slab->next;
    if (slab->next)
        slab->next->previous = slab->previous;
}

void SlabPool::retire(Slab* slab)
{
    if (slab == m_open) {
        *slab = Slab();
        return;
    }
    --m_slabsInUse;
    if (keptBytes + slabBytes > keepLimit()) {
        munmap(slab, slabBytes);
        return;
    }
    keptBytes += slabBytes;
    ++m_slabsKept;
    slab->next = m_free;
    m_free = slab;
}

Footprint SlabPool::footprint()
{
    std::lock_guard const lock(m_guard);
    return {m_slabsInUse * slabBytes, m_slabsKept * slabBytes};
}

}  // namespace RecordSlabs
