// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "tests/support/Soup.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>
#include <vector>

/// How far two pieces of a part stand apart: the distances of the first one's new points, those on
/// its wall, from the surface of the second. Brute force, and nothing of the program's own.
struct PieceGap
{
    PieceGap(Soup const& whole, Soup const& first, Soup const& second)
    {
        std::set<std::tuple<float, float, float>> old;
        for (auto const& p : whole.points)
            old.insert({float(p.X()), float(p.Y()), float(p.Z())});
        std::vector<bool> isNew;
        for (auto const& p : first.points)
            isNew.push_back(!old.contains({float(p.X()), float(p.Y()), float(p.Z())}));
        std::vector<double> distances;
        for (std::size_t i = 0; i < first.points.size(); ++i)
            if (isNew[i])
                distances.push_back(distanceFrom(second, pointOf(first.points[i])));
        wallPoints = distances.size();
        if (distances.empty())
            return;
        std::sort(distances.begin(), distances.end());
        least = distances.front();
        median = distances[distances.size() / 2];
        measureWall(whole, first);
    }

    std::size_t wallPoints = 0;
    double least = 0;
    double median = 0;
    /// Of the first piece, what is no surface of the whole.
    double wallArea = 0;

private:
    using Vector = UVector3<double>;
    using Point = UPoint3<double>;

    template <typename P>
    static Point pointOf(P const& p)
    {
        return {double(p.X()), double(p.Y()), double(p.Z())};
    }

    static double distanceFromTriangle(Point const& p, Point const& a, Point const& b,
                                       Point const& c)
    {
        Vector const n = (b - a) * (c - a);
        double const length = n.GetLength();
        auto const isInside = [&](Point const& u, Point const& v) {
            return (((v - u) * (p - u)) | n) >= 0;
        };
        if (length > 0 && isInside(a, b) && isInside(b, c) && isInside(c, a))
            return std::abs((p - a) | n) / length;
        return std::min(
            {distanceFromEdge(p, a, b), distanceFromEdge(p, b, c), distanceFromEdge(p, c, a)});
    }
    static double distanceFromEdge(Point const& p, Point const& a, Point const& b)
    {
        Vector const along = b - a;
        double const squared = along | along;
        double const t = squared > 0 ? std::clamp(((p - a) | along) / squared, 0.0, 1.0) : 0;
        return (p - (a + along * t)).GetLength();
    }
    static double distanceFrom(Soup const& soup, Point const& p)
    {
        double least = 1e30;
        for (auto const& triangle : soup.triangles)
            least = std::min(least, distanceFromTriangle(p, pointOf(soup.points[triangle[0]]),
                                                         pointOf(soup.points[triangle[1]]),
                                                         pointOf(soup.points[triangle[2]])));
        return least;
    }
    /// Triangles whose middles lie off the surface of the whole.
    void measureWall(Soup const& whole, Soup const& first)
    {
        for (auto const& triangle : first.triangles) {
            Point const a = pointOf(first.points[triangle[0]]);
            Point const b = pointOf(first.points[triangle[1]]);
            Point const c = pointOf(first.points[triangle[2]]);
            Point const middle = (a + b + c) / 3.0;
            double const area = ((b - a) * (c - a)).GetLength() / 2;
            if (area > 1e-9 && distanceFrom(whole, middle) > 1e-4)
                wallArea += area;
        }
    }
};
