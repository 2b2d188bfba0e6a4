// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/memory/RecordSlabs.h"

#include "host/memory/SlabPool.h"
#include "platform/mesh/UTriangle.h"

#include <new>
#include <type_traits>

namespace RecordSlabs {

namespace {

#if defined(MELL_ADDRESS_SANITIZER)
constexpr bool everyRecordAlone = true;
#else
constexpr bool everyRecordAlone = false;
#endif

/// Lives as long as the process: records may outlive every static object.
template <typename Record>
SlabPool& pool()
{
    static SlabPool* const instance = new SlabPool(sizeof(Record));
    return *instance;
}

/// A thread's own stock of records: freed ones as a list, fresh ones as a run.
struct Cache
{
    FreeRecord* list = nullptr;
    std::size_t listCount = 0;
    Run run;
    bool isOver = false;
};

constexpr std::size_t refillCount = 1024;
constexpr std::size_t listLimit = 2048;

template <typename Record>
thread_local constinit Cache cache;

/// Gives a thread's stock back when the thread ends. The cache itself has no destructor, so that
/// other thread-local objects may still free records after this one has gone.
template <typename Record>
struct CacheReturn
{
    bool isArmed = false;

    ~CacheReturn()
    {
        Cache& mine = cache<Record>;
        mine.isOver = true;
        pool<Record>().giveBack(mine.list);
        pool<Record>().giveBack(mine.run);
    }
};

template <typename Record>
thread_local CacheReturn<Record> cacheReturn;

template <typename Record>
[[gnu::noinline]] void refill(Cache& mine)
{
    cacheReturn<Record>.isArmed = true;
    mine.run = pool<Record>().take(mine.isOver ? 1 : refillCount);
}

/// Halves a list that has grown too long, so that freed records reach other threads and whole
/// slabs can be given back.
template <typename Record>
[[gnu::noinline]] void shorten(Cache& mine)
{
    cacheReturn<Record>.isArmed = true;
    std::size_t const keep = mine.isOver ? 0 : listLimit / 2;
    FreeRecord** end = &mine.list;
    for (std::size_t i = 0; i < keep; ++i)
        end = &(*end)->next;
    FreeRecord* const surplus = *end;
    *end = nullptr;
    mine.listCount = keep;
    pool<Record>().giveBack(surplus);
}

}  // namespace

template <typename Record>
void* allocate()
{
    if constexpr (everyRecordAlone)
        return ::operator new(sizeof(Record));
    Cache& mine = cache<Record>;
    if (!mine.list && mine.run.count == 0)
        refill<Record>(mine);
    if (mine.list) {
        FreeRecord* const record = mine.list;
        mine.list = record->next;
        --mine.listCount;
        return record;
    }
    void* const record = mine.run.begin;
    // Records are written one after the other as a rule: have the place of a later one fetched.
    __builtin_prefetch(mine.run.begin + 16 * sizeof(Record), 1);
    mine.run.begin += sizeof(Record);
    --mine.run.count;
    return record;
}

template <typename Record>
void release(void* record) noexcept
{
    if (!record)
        return;
    if constexpr (everyRecordAlone)
        return ::operator delete(record);
    Cache& mine = cache<Record>;
    mine.list = new (record) FreeRecord{mine.list};
    if (++mine.listCount > listLimit || mine.isOver)
        shorten<Record>(mine);
}

template <typename Record>
std::vector<std::span<Record>> allocateRuns(std::size_t count)
{
    std::vector<std::span<Record>> spans;
    if constexpr (everyRecordAlone) {
        for (std::size_t i = 0; i < count; ++i)
            spans.emplace_back(static_cast<Record*>(::operator new(sizeof(Record))), 1);
        return spans;
    }
    std::vector<Run> runs;
    pool<Record>().takeRuns(count, runs);
    spans.reserve(runs.size());
    for (Run const& run : runs)
        spans.emplace_back(reinterpret_cast<Record*>(run.begin), run.count);
    return spans;
}

template <typename Record>
void releaseRun(std::span<Record> run) noexcept
{
    if constexpr (everyRecordAlone) {
        for (Record& record : run)
            ::operator delete(&record);
        return;
    }
    pool<Record>().giveBack(Run{reinterpret_cast<std::byte*>(run.data()), run.size()});
}

template <typename Record>
void releaseAll(std::span<Record* const> records) noexcept
{
    static_assert(std::is_trivially_destructible_v<Record>);
    if constexpr (everyRecordAlone) {
        for (Record* const record : records)
            ::operator delete(record);
        return;
    }
    // A pointer to a record is a pointer to its memory: the list can be read as one of raw
    // pointers.
    pool<Record>().giveBackAll(reinterpret_cast<void* const*>(records.data()), records.size());
}

template <typename Record>
Footprint footprint()
{
    return pool<Record>().footprint();
}

template <typename Record>
void giveKeptBack()
{
    pool<Record>().giveKeptBack();
}

using Vertex = UVertex<float>;
using Triangle = UTriangle<float>;
template void* allocate<Vertex>();
template void* allocate<Triangle>();
template void release<Vertex>(void*) noexcept;
template void release<Triangle>(void*) noexcept;
template std::vector<std::span<Vertex>> allocateRuns<Vertex>(std::size_t);
template std::vector<std::span<Triangle>> allocateRuns<Triangle>(std::size_t);
template void releaseRun<Vertex>(std::span<Vertex>) noexcept;
template void releaseRun<Triangle>(std::span<Triangle>) noexcept;
template void releaseAll<Vertex>(std::span<Vertex* const>) noexcept;
template void releaseAll<Triangle>(std::span<Triangle* const>) noexcept;
template Footprint footprint<Vertex>();
template Footprint footprint<Triangle>();
template void giveKeptBack<Vertex>();
template void giveKeptBack<Triangle>();

}  // namespace RecordSlabs

template <typename T>
void* UVertex<T>::operator new(std::size_t)
{
    return RecordSlabs::allocate<UVertex>();
}

template <typename T>
void UVertex<T>::operator delete(void* record) noexcept
{
    RecordSlabs::release<UVertex>(record);
}

template <typename T>
void* UTriangle<T>::operator new(std::size_t)
{
    return RecordSlabs::allocate<UTriangle>();
}

template <typename T>
void UTriangle<T>::operator delete(void* record) noexcept
{
    RecordSlabs::release<UTriangle>(record);
}

template class UVertex<float>;
template class UTriangle<float>;
