// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/RoundRing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Freecut {

namespace {

using Point = UPoint3<float>;
using Vector = UVector3<float>;

/// What making an arc costs, in steps of work.
constexpr std::size_t stepsOfArc = 128;

/// A corner between two sides, seen from its point.
struct Corner
{
    Point point;
    Vector toPrevious;
    Vector toNext;
    float halfAngle;
    /// From the point to where the arc begins and ends.
    float setback;

    Corner(Point const& previous, Point const& at, Point const& next, float radius)
        : point(at), toPrevious(previous - at), toNext(next - at)
    {
        float const shorter = std::min(toPrevious.GetLength(), toNext.GetLength());
        toPrevious.Normalize();
        toNext.Normalize();
        halfAngle = std::acos(toPrevious | toNext) * 0.5f;
        setback = radius / std::tan(halfAngle);
        hasRoom = shorter > setback;
    }

    Point begin() const { return point + toPrevious * setback; }
    Point end() const { return point + toNext * setback; }

    bool hasRoom;
};

/// From the beginning of the arc to its end, by steps along the tangent.
void appendArc(Ring& ring, Corner const& corner, float radius)
{
    Point const begin = corner.begin();
    Point const end = corner.end();
    Point const center = corner.point + (corner.toPrevious + corner.toNext).Normalize() *
                                            (radius / std::sin(corner.halfAngle));
    float const sweep = std::numbers::pi_v<float> - corner.halfAngle * 2;
    int const count = int((sweep / std::numbers::pi) * 90.0);
    int const steps = count + 1;
    Vector u = begin - center;
    Vector const axis = (u * (end - center)).Normalize();
    ring.push_back(begin);
    if (steps > 1) {
        float const tanStep = std::tan(sweep / float(steps));
        for (int i = 0; i < count; ++i) {
            Vector const w = (axis * u).Normalize();
            u = (u + w * radius * tanStep).Normalize() * radius;
            ring.push_back(center + u);
        }
    }
    ring.push_back(end);
}

}  // namespace

void roundRing(Ring& ring, float radius, WorkPoll const& poll)
{
    if (!(radius > leastLength) || ring.empty())
        return;
    Ring rounded;
    PollSteps polling(poll);
    Point previous = ring.back();
    Point first = ring.front();
    for (std::size_t i = 0; i < ring.size(); ++i) {
        Corner const corner(previous, ring[i], i + 1 < ring.size() ? ring[i + 1] : first, radius);
        polling.step();
        if (corner.hasRoom) {
            polling.step(stepsOfArc);
            appendArc(rounded, corner, radius);
            if (i == 0)
                first = corner.begin();
            previous = corner.end();
        } else {
            rounded.push_back(ring[i]);
            previous = ring[i];
        }
    }
    ring.swap(rounded);
}

}  // namespace Freecut
