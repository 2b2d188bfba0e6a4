// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/WindingField.h"

#include "tests/support/DistanceFromTriangle.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace judge {
namespace {

/// The sign of a turn seen from above; 0 if doubles cannot tell.
int turnAt(Vector const& a, Vector const& b)
{
    double const left = a.X() * b.Y(), right = a.Y() * b.X();
    double const bound = 1e-14 * (std::abs(left) + std::abs(right));
    double const value = left - right;
    return value > bound ? 1 : value < -bound ? -1 : 0;
}

}  // namespace

WindingField::WindingField(Soup soup) : m_soup(std::move(soup)), m_boxes(m_soup) {}

std::optional<int> WindingField::windingAt(UPoint3<double> const& p) const
{
    int winding = 0;
    bool isClear = true;
    auto const meetsRay = [&](UBox3<float> const& box) {
        return p.X() >= box.min.X() && p.X() <= box.max.X() && p.Y() >= box.min.Y() &&
               p.Y() <= box.max.Y() && p.Z() <= box.max.Z();
    };
    m_boxes.search(meetsRay, [&](std::uint32_t triangle) {
        auto const& t = m_soup.triangles[triangle];
        Vector const a = offset(p, m_soup.points[t[0]]);
        Vector const b = offset(p, m_soup.points[t[1]]);
        Vector const c = offset(p, m_soup.points[t[2]]);
        int const turns[3] = {turnAt(a, b), turnAt(b, c), turnAt(c, a)};
        int const least = std::min({turns[0], turns[1], turns[2]});
        int const most = std::max({turns[0], turns[1], turns[2]});
        if (least < 0 && most > 0)
            return;
        if (least == 0 || most == 0) {
            isClear = false;
            return;
        }
        // Seen from the point the triangle turns as its projection does where it lies above.
        Vector const normal = (b - a) * (c - a);
        double const height = a | normal;
        double const bound = 1e-12 * a.GetLength() * normal.GetLength();
        if (std::abs(height) <= bound)
            isClear = false;
        else if ((height > 0) == (turns[0] > 0))
            winding += turns[0];
    });
    return isClear ? std::optional(winding) : std::nullopt;
}

double WindingField::solidAngleAt(UPoint3<double> const& p) const
{
    double sum = 0;
    for (auto const& t : m_soup.triangles) {
        Vector const a = offset(p, m_soup.points[t[0]]);
        Vector const b = offset(p, m_soup.points[t[1]]);
        Vector const c = offset(p, m_soup.points[t[2]]);
        double const la = a.GetLength(), lb = b.GetLength(), lc = c.GetLength();
        sum +=
            2 * std::atan2(a | (b * c), la * lb * lc + (a | b) * lc + (b | c) * la + (c | a) * lb);
    }
    return sum / (4 * std::numbers::pi);
}

bool WindingField::isWithin(double distance, UPoint3<double> const& p) const
{
    bool isFound = false;
    auto const meetsBall = [&](UBox3<float> const& box) {
        if (isFound)
            return false;
        double square = 0;
        for (int k = 0; k < 3; ++k) {
            double const out = std::max({0.0, box.min[k] - p[k], p[k] - box.max[k]});
            square += out * out;
        }
        return square <= distance * distance;
    };
    m_boxes.search(meetsBall, [&](std::uint32_t triangle) {
        auto const& t = m_soup.triangles[triangle];
        isFound = isFound || distanceFromTriangle(offset(p, m_soup.points[t[0]]),
                                                  offset(p, m_soup.points[t[1]]),
                                                  offset(p, m_soup.points[t[2]])) <= distance;
    });
    return isFound;
}

}  // namespace judge
