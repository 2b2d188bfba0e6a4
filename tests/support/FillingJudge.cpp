// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/FillingJudge.h"

#include <gmpxx.h>
#include <map>
#include <set>

namespace judge {

namespace {

struct Way
{
    mpq_class x, y;

    Way(FlatPoint const& from, FlatPoint const& to)
        : x(mpq_class(to[0]) - mpq_class(from[0])), y(mpq_class(to[1]) - mpq_class(from[1]))
    {}
    mpq_class square() const { return x * x + y * y; }
};

mpq_class cross(Way const& a, Way const& b)
{
    return a.x * b.y - a.y * b.x;
}

std::string named(FlatEdge const& edge)
{
    return std::to_string(edge[0]) + "-" + std::to_string(edge[1]);
}

}  // namespace

int flatTurn(FlatPoint const& a, FlatPoint const& b, FlatPoint const& c)
{
    return sgn(cross(Way(a, b), Way(a, c)));
}

bool isWithinCircle(FlatPoint const& a, FlatPoint const& b, FlatPoint const& c, FlatPoint const& d)
{
    Way const u(d, a), v(d, b), w(d, c);
    mpq_class const power =
        u.square() * cross(v, w) + v.square() * cross(w, u) + w.square() * cross(u, v);
    return sgn(power) > 0;
}

std::string fillingFault(std::vector<FlatPoint> const& points,
                         std::vector<FlatEdge> const& contours,
                         std::vector<FlatTriangle> const& triangles)
{
    std::set<FlatEdge> const border(contours.begin(), contours.end());
    std::map<FlatEdge, std::uint32_t> apexOf;
    for (auto const& [a, b, c] : triangles) {
        if (flatTurn(points[a], points[b], points[c]) <= 0)
            return "turned or flat at " + named({a, b});
        for (auto const& [from, to, apex] : {FlatTriangle{a, b, c}, {b, c, a}, {c, a, b}})
            if (!apexOf.emplace(FlatEdge{from, to}, apex).second)
                return "two triangles on one side of " + named({from, to});
    }
    for (FlatEdge const& edge : contours)
        if (!apexOf.contains(edge))
            return "nothing beside the contour at " + named(edge);
    for (auto const& [edge, apex] : apexOf) {
        auto const [from, to] = edge;
        auto const other = apexOf.find({to, from});
        if (border.contains(edge))
            continue;
        if (other == apexOf.end())
            return "open at " + named(edge);
        if (border.contains({to, from}))
            return "beyond the contour at " + named(edge);
        if (isWithinCircle(points[from], points[to], points[apex], points[other->second]))
            return "not Delaunay at " + named(edge);
    }
    return {};
}

}  // namespace judge
