// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/Polling.h"
#include "host/services/boolean/SheetOrder.h"
#include "host/services/boolean/SideGroups.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

/// The groups of one operand with what the curves say about each.
class LabelledGroups
{
public:
    LabelledGroups(OperandSoup const& soup, CurveNetwork const& network, Operand o,
                   StageProgress& progress)
        : groups(soup, network, o, progress),
          operand(o),
          m_isOn(groups.size(), false),
          m_isPlain(groups.size(), false)
    {}

    /// The winding numbers of both operands behind a group less those in front of it.
    using Change = std::array<int, 2>;

    /// Notes what a seed says of a group.
    ///
    /// isLead  whether the group speaks for those of its operand that lie on it
    void note(std::uint32_t group, SideSeed const& seed, bool isLead)
    {
        Change change{seed.behind[0] - seed.front[0], seed.behind[1] - seed.front[1]};
        // The first operand's own number is not kept.
        if (operand == Operand::first)
            change[0] = 1;
        bool const isAlone = seed.stack.along + seed.stack.against == 0 && isLead;
        if (change == plainChange() && (operand == Operand::first || isAlone)) {
            m_isPlain[group] = true;
            return;
        }
        m_isOn[group] = true;
        if (operand == Operand::first)
            m_stacked.push_back({group, change, {}, true});
        else
            m_stacked.push_back({group, change, seed.stack, isLead});
    }

    /// Makes the questions below ready, when all is noted. Returns false if seeds contradict each
    /// other.
    bool sortStacked(StageProgress& progress)
    {
        sortPolled<true>(m_stacked, progress,
                         [](auto const& a, auto const& b) { return a.group < b.group; });
        std::size_t kept = 0;
        for (Stacked const& stacked : m_stacked) {
            if (m_isPlain[stacked.group])
                return false;
            if (kept == 0 || m_stacked[kept - 1].group != stacked.group)
                m_stacked[kept++] = stacked;
            else if (m_stacked[kept - 1] != stacked)
                return false;
        }
        m_stacked.resize(kept);
        return true;
    }

    /// Whether a group lies on others.
    bool isOn(std::uint32_t group) const { return m_isOn[group]; }
    Change changeOf(std::uint32_t group) const
    {
        return m_isOn[group] ? at(group).change : plainChange();
    }
    SheetStack stackOf(std::uint32_t group) const
    {
        return m_isOn[group] ? at(group).stack : SheetStack();
    }
    bool isLead(std::uint32_t group) const { return !m_isOn[group] || at(group).isLead; }

    SideGroups groups;
    Operand operand;

private:
    /// A group that lies on others.
    struct Stacked
    {
        std::uint32_t group;
        Change change;
        SheetStack stack;
        bool isLead;
        bool operator==(Stacked const&) const = default;
    };

    /// What is behind a group that lies on nothing.
    Change plainChange() const { return {operand == Operand::first, operand == Operand::second}; }

    Stacked const& at(std::uint32_t group) const
    {
        return *std::lower_bound(m_stacked.begin(), m_stacked.end(), group,
                                 [](Stacked const& s, std::uint32_t g) { return s.group < g; });
    }

    std::vector<bool> m_isOn;
    /// Groups that a seed says lie on nothing.
    std::vector<bool> m_isPlain;
    std::vector<Stacked> m_stacked;
};
