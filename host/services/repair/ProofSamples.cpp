// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/ProofSamples.h"

#include <algorithm>
#include <cmath>

namespace {

using Place = WindingField::Place;
using Point = MeshArrays::Point;

UVector3<double> offset(MeshArrays const& part, std::size_t t, int corner)
{
    Point const &a = part.point(t, 0), &b = part.point(t, corner);
    return {double(b.X()) - a.X(), double(b.Y()) - a.Y(), double(b.Z()) - a.Z()};
}

}  // namespace

void SolidBox::add(Point const& p)
{
    for (std::size_t k = 0; k < 3; ++k) {
        low[k] = std::min(low[k], double(p[int(k)]));
        high[k] = std::max(high[k], double(p[int(k)]));
    }
}

double SolidBox::volume() const
{
    return isNull() ? 0 : (high[0] - low[0]) * (high[1] - low[1]) * (high[2] - low[2]);
}

double SolidBox::reach() const
{
    double most = 0;
    for (std::size_t k = 0; k < 3; ++k)
        most = std::max({most, std::abs(low[k]), std::abs(high[k])});
    return most;
}

SolidBox SolidBox::around(MeshArrays const& mesh)
{
    SolidBox box;
    for (MeshArrays::Corners const& corners : mesh.triangles)
        for (std::uint32_t const corner : corners)
            box.add(mesh.points[corner]);
    return box;
}

void ProofSamples::addNear(MeshArrays const& part, double unit)
{
    std::size_t const count = part.triangles.size();
    std::size_t const asked = std::min(count, mostTriangles);
    for (std::size_t i = 0; i < asked; ++i)
        addNear(part, i * count / asked, unit);
}

void ProofSamples::addNear(MeshArrays const& part, std::size_t t, double unit)
{
    Place middle{};
    SolidBox box;
    for (int k = 0; k < 3; ++k) {
        box.add(part.point(t, k));
        for (int axis = 0; axis < 3; ++axis)
            middle[std::size_t(axis)] += part.point(t, k)[axis] / 3.0;
    }
    UVector3<double> const u = offset(part, t, 1), v = offset(part, t, 2);
    UVector3<double> normal = u * v;
    double const doubled = normal.GetLength();
    double const length = std::max({u.GetLength(), v.GetLength(), (v - u).GetLength()});
    // Nothing can be asked beside a triangle that is as low as rounding.
    constexpr double lowest = 64;
    if (length > 0 && doubled / length > lowest * unit) {
        double const away = std::max(16 * unit, doubled / length / 50);
        normal = normal / doubled;
        for (double const side : {away, -away})
            places.push_back({middle[0] + side * normal.X(), middle[1] + side * normal.Y(),
                              middle[2] + side * normal.Z()});
    }
    for (std::size_t k = 0; k < 3; ++k) {
        box.low[k] -= length / 2;
        box.high[k] += length / 2;
    }
    addWithin(box, 2);
}

void ProofSamples::addWithin(SolidBox const& box, int count)
{
    if (box.isNull())
        return;
    for (int i = 0; i < count; ++i) {
        Place place;
        for (std::size_t k = 0; k < 3; ++k)
            place[k] = box.low[k] + share() * (box.high[k] - box.low[k]);
        places.push_back(place);
    }
}
