// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/RecordSlabs.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace Formats {

/// Memory for mesh records, taken from the slabs in blocks and handed out one by one in ascending
/// order; what is left over goes back with the stock.
///
/// cost  a comparison and an addition per record
template <typename Record>
class RecordStock
{
public:
    RecordStock() = default;
    ~RecordStock() { giveBackRest(); }
    RecordStock(RecordStock const&) = delete;
    RecordStock& operator=(RecordStock const&) = delete;

    /// A place for one record, which the caller constructs there and adds to a mesh.
    void* take()
    {
        if (m_next == m_end)
            refill();
        return m_next++;
    }

    /// Takes the place handed out last back.
    void untake() { --m_next; }

private:
    static constexpr std::size_t blockSize = 8192;

    void refill()
    {
        while (m_nextRun == m_runs.size()) {
            m_runs = RecordSlabs::allocateRuns<Record>(blockSize);
            m_nextRun = 0;
        }
        auto const run = m_runs[m_nextRun++];
        m_next = run.data();
        m_end = run.data() + run.size();
    }

    void giveBackRest()
    {
        for (; m_next != m_end; ++m_next)
            RecordSlabs::release<Record>(m_next);
        for (; m_nextRun < m_runs.size(); ++m_nextRun)
            for (Record& place : m_runs[m_nextRun])
                RecordSlabs::release<Record>(&place);
    }

    Record* m_next = nullptr;
    Record* m_end = nullptr;
    std::vector<std::span<Record>> m_runs;
    std::size_t m_nextRun = 0;
};

}  // namespace Formats
