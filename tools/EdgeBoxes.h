// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/BoxTree.h"
#include "tools/Loops.h"

namespace Freecut {

/// The boxes around the edges of a closed outline, so that edges that are far apart need not be
/// compared.
class EdgeBoxes
{
public:
    explicit EdgeBoxes(FlatRing const& outline);

    /// Calls `visit` with every edge from `first` on, in rising order, whose box shares a point
    /// with that of the edge, until a call returns true. Returns whether one did.
    template <typename Visit>
    bool findNear(std::size_t edge, std::size_t first, Visit const& visit) const
    {
        return m_tree.findMeeting(m_tree.box(edge), first, visit);
    }

private:
    BoxTree m_tree;
};

}  // namespace Freecut
