// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/PinHoleParas.h"
#include "platform/geometry/UPoint3.h"

#include <cstddef>
#include <vector>

class PlaneFrame;

/// What a person has changed by hand about where the pins or holes of a part stand.
struct ConnectorChoice
{
    /// Connectors in places of their own. They stay where they are while values change, and follow
    /// the plane along its normal.
    std::vector<UPoint3<float>> added;
    /// Places whose connectors are left out. The one in half a spacing's reach counts, so that it
    /// stays left out while values change and it moves a little.
    std::vector<UPoint3<float>> leftOut;
    /// Connectors that are left out by their places in the list that connectorsOf() makes.
    std::vector<std::size_t> leftOutPlaces;
    /// Only those that were added stand.
    bool leavesOutAutomatic = false;

    bool isEmpty() const
    {
        return added.empty() && leftOut.empty() && leftOutPlaces.empty() && !leavesOutAutomatic;
    }
};

/// A pin with its hole, or a pair of holes.
struct ChosenConnector
{
    enum class State
    {
        Stands,
        LeftOut,
        /// Another one that was added stands too near.
        GivesWay,
    };

    UPoint3<float> position;
    bool isAdded = false;
    State state = State::Stands;
    /// Its pin is cut short by the part's surface, or its hole opens through it.
    bool leavesPart = false;

    bool stands() const { return state == State::Stands; }
};

/// The automatic connectors in their order, and then the added ones. Those that stand are a
/// leastDistance() apart: what is too near to one that was added gives way to it, and of those
/// added the later one.
std::vector<ChosenConnector> connectorsOf(std::vector<UPoint3<float>> const& automatic,
                                          ConnectorChoice const& choice, PinHoleParas const& paras,
                                          PlaneFrame const& frame);

/// Where those stand that do.
std::vector<UPoint3<float>> standingPositions(std::vector<ChosenConnector> const& connectors);
