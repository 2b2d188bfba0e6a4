// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "platform/jobs/Exceptions.h"

#include <optional>

namespace Mell {

/// A failure for what a mesh is like at a place.
class FlawException : public Exception
{
public:
    /// place          in the coordinates of the sentence; none where it names none
    /// repairMayHelp  the flaw is the part's own, and of a kind that a repair mends
    FlawException(std::string const& sentence, std::optional<UPoint3<float>> const& place,
                  bool repairMayHelp)
        : Exception(sentence), m_place(place), m_repairMayHelp(repairMayHelp)
    {}

    std::optional<UPoint3<float>> const& place() const { return m_place; }
    bool repairMayHelp() const { return m_repairMayHelp; }

private:
    std::optional<UPoint3<float>> m_place;
    bool m_repairMayHelp;
};

}  // namespace Mell
