// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/memory/SlabPool.h"

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
    FreeRun* freeRuns = nullptr;
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

/// Takes from the free pieces of partly used slabs.
Run SlabPool::takePartial(std::size_t wanted)
{
    Slab* const slab = m_partial;
    FreeRun* const first = slab->freeRuns;
    Run const taken{reinterpret_cast<std::byte*>(first), std::min(wanted, first->count)};
    slab->freeRuns = first->next;
    if (taken.count < first->count)
        slab->freeRuns = new (taken.begin + taken.count * m_recordSize)
            FreeRun{first->next, first->count - taken.count};
    slab->inUse += taken.count;
    if (!slab->freeRuns)
        unlinkPartial(slab);
    return taken;
}

Run SlabPool::take(std::size_t wanted)
{
    std::lock_guard const lock(m_guard);
    return m_partial ? takePartial(wanted) : bump(wanted);
}

void SlabPool::takeRuns(std::size_t count, std::vector<Run>& runs)
{
    std::lock_guard const lock(m_guard);
    while (count > 0) {
        // Crumbs are left to those who need one record at a time.
        constexpr std::size_t crumb = 64;
        bool const isWorthwhile = m_partial && m_partial->freeRuns->count >= std::min(count, crumb);
        runs.push_back(isWorthwhile ? takePartial(count) : bump(count));
        count -= runs.back().count;
    }
}

void SlabPool::giveBack(FreeRecord* list)
{
    std::lock_guard const lock(m_guard);
    while (list) {
        FreeRecord* const next = list->next;
        free({reinterpret_cast<std::byte*>(list), 1});
        list = next;
    }
}

void SlabPool::giveBack(Run run)
{
    std::lock_guard const lock(m_guard);
    if (run.count > 0)
        free(run);
}

void SlabPool::giveBackAll(void* const* records, std::size_t count)
{
    // Other threads get their turn between the batches.
    constexpr std::size_t batch = 1 << 16;
    for (std::size_t begin = 0; begin < count; begin += batch) {
        std::size_t const end = std::min(count, begin + batch);
        std::lock_guard const lock(m_guard);
        for (std::size_t i = begin; i < end;) {
            std::size_t const start = i++;
            auto* const first = static_cast<std::byte*>(records[start]);
            if (!first)
                continue;
            std::byte* next = first + m_recordSize;
            // Neighbouring records lie in one slab: between two slabs stands a header.
            while (i < end && records[i] == next) {
                next += m_recordSize;
                ++i;
            }
            free({first, i - start});
        }
    }
}

void SlabPool::free(Run run)
{
    Slab* const slab = slabOf(run.begin);
    assert(slab->inUse >= run.count);
    slab->inUse -= run.count;
    if (slab->inUse == 0) {
        if (slab->isPartial)
            unlinkPartial(slab);
        retire(slab);
        return;
    }
    FreeRun* const last = slab->freeRuns;
    // Pieces that come back in order grow together.
    if (last && reinterpret_cast<std::byte*>(last) + last->count * m_recordSize == run.begin)
        last->count += run.count;
    else
        slab->freeRuns = new (run.begin) FreeRun{last, run.count};
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

void SlabPool::giveKeptBack()
{
    std::lock_guard const lock(m_guard);
    while (Slab* const slab = m_free) {
        m_free = slab->next;
        munmap(slab, slabBytes);
        keptBytes -= slabBytes;
        --m_slabsKept;
    }
}

Footprint SlabPool::footprint()
{
    std::lock_guard const lock(m_guard);
    return {m_slabsInUse * slabBytes, m_slabsKept * slabBytes};
}

}  // namespace RecordSlabs
