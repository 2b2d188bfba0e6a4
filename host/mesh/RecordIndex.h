// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

/// Finds a record's place in its list without writing to the record. Where the identifiers are
/// valid they are the answer; otherwise the addresses are sorted once.
///
/// cost  one pass over the list; an answer is one load, or a binary search
template <typename Record>
class RecordIndex
{
public:
    /// For records whose identifiers are known to be valid.
    RecordIndex() = default;

    explicit RecordIndex(std::span<Record* const> list)
    {
        for (std::size_t i = 0; i < list.size(); ++i)
            if (list[i]->cID() != i) {
                sortAddresses(list);
                return;
            }
    }

    /// The place of a record that is in the list.
    std::uint32_t operator()(Record const* record) const
    {
        if (m_sorted.empty())
            return std::uint32_t(record->cID());
        auto const found =
            std::lower_bound(m_sorted.begin(), m_sorted.end(), std::pair(record, std::uint32_t(0)));
        return found->second;
    }

private:
    void sortAddresses(std::span<Record* const> list)
    {
        m_sorted.reserve(list.size());
        for (std::size_t i = 0; i < list.size(); ++i)
            m_sorted.emplace_back(list[i], std::uint32_t(i));
        std::sort(m_sorted.begin(), m_sorted.end());
    }

    std::vector<std::pair<Record const*, std::uint32_t>> m_sorted;
};
