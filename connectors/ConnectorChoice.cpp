// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ConnectorChoice.h"

#include "connectors/ConnectorPositions.h"
#include "connectors/PlaneFrame.h"

#include <algorithm>

namespace {

using Point = UPoint3<float>;
using State = ChosenConnector::State;

Point projected(Point const& p, PlaneFrame const& frame)
{
    Point local = frame.toPlaneLocal(p);
    // A point of the plane keeps its bits.
    if (local.Z() == 0)
        return p;
    local[2] = 0;
    return frame.fromPlaneLocal(local);
}

bool isNear(Point const& p, std::vector<Point> const& places, double distance)
{
    return std::any_of(places.begin(), places.end(),
                       [&](Point const& place) { return (place - p).GetLength() < distance; });
}

}  // namespace

std::vector<ChosenConnector> connectorsOf(std::vector<Point> const& automatic,
                                          ConnectorChoice const& choice, PinHoleParas const& paras,
                                          PlaneFrame const& frame)
{
    std::vector<Point> leftOut;
    for (Point const& place : choice.leftOut)
        leftOut.push_back(projected(place, frame));
    double const least = leastDistance(paras);
    double const reach = std::max(double(paras.spacing), least) / 2;
    std::vector<ChosenConnector> connectors;
    auto const add = [&](Point const& position, bool isAdded) {
        auto const& places = choice.leftOutPlaces;
        bool const isOut =
            (!isAdded && choice.leavesOutAutomatic) ||
            std::find(places.begin(), places.end(), connectors.size()) != places.end() ||
            isNear(position, leftOut, isAdded ? least / 2 : reach);
        connectors.push_back({position, isAdded, isOut ? State::LeftOut : State::Stands, false});
    };
    for (Point const& position : automatic)
        add(position, false);
    for (Point const& position : choice.added)
        add(projected(position, frame), true);
    std::vector<Point> kept;
    auto const giveWay = [&](bool isAdded) {
        for (ChosenConnector& connector : connectors)
            if (connector.isAdded == isAdded && connector.stands()) {
                if (isNear(connector.position, kept, least * (1 - 1e-5)))
                    connector.state = State::GivesWay;
                else if (isAdded)
                    kept.push_back(connector.position);
            }
    };
    giveWay(true);
    giveWay(false);
    return connectors;
}

std::vector<Point> standingPositions(std::vector<ChosenConnector> const& connectors)
{
    std::vector<Point> positions;
    for (ChosenConnector const& connector : connectors)
        if (connector.stands())
            positions.push_back(connector.position);
    return positions;
}
