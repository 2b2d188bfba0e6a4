// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/memory/RecordSlabs.h"

#include <cstddef>
#include <span>
#include <vector>

/// Raw memory for mesh records, taken from the slabs in blocks and handed out one by one; what is
/// left over goes back with the stock. It belongs to one thread.
///
/// cost  a comparison and an addition per record
template <typename Record>
class RecordStock
{
public:
    RecordStock() = default;
    RecordStock(RecordStock const&) = delete;
    RecordStock& operator=(RecordStock const&) = delete;

    ~RecordStock()
    {
        RecordSlabs::releaseRun(std::span(m_next, m_end));
        for (; m_nextRun < m_runs.size(); ++m_nextRun)
            RecordSlabs::releaseRun(m_runs[m_nextRun]);
    }

    /// A place for one record, which the caller constructs there.
    Record* take()
    {
        if (m_next == m_end)
            refill();
        return m_next++;
    }

    /// Takes the place handed out last back.
    void untake() { --m_next; }

    /// Until endNotes(), the runs in which the places handed out lie are appended to `runs`, in
    /// order.
    void beginNotes(std::vector<std::span<Record>>& runs)
    {
        m_notes = &runs;
        m_noted = m_next;
    }

    void endNotes()
    {
        note();
        m_notes = nullptr;
    }

private:
    static constexpr std::size_t blockSize = 8192;

    void note()
    {
        if (m_notes && m_noted != m_next)
            m_notes->emplace_back(m_noted, m_next);
    }

    void refill()
    {
        note();
        while (m_nextRun == m_runs.size()) {
            m_runs = RecordSlabs::allocateRuns<Record>(blockSize);
            m_nextRun = 0;
        }
        auto const run = m_runs[m_nextRun++];
        m_noted = m_next = run.data();
        m_end = run.data() + run.size();
    }

    Record* m_next = nullptr;
    Record* m_end = nullptr;
    std::vector<std::span<Record>> m_runs;
    std::size_t m_nextRun = 0;
    std::vector<std::span<Record>>* m_notes = nullptr;
    Record* m_noted = nullptr;
};
