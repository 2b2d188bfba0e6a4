// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/NearCopies.h"

#include "platform/geometry/UBox3.h"

#include <cmath>

namespace {

UBox3<float> boxOf(Soup const& soup)
{
    UBox3<float> box;
    for (auto const& p : soup.points)
        box.Add(p);
    return box;
}

}  // namespace

double sizeOf(Soup const& soup)
{
    UBox3<float> const box = boxOf(soup);
    return (box.max - box.min).GetLength();
}

Soup shiftedCopy(Soup soup, double share)
{
    double const way = share * sizeOf(soup);
    for (auto& p : soup.points)
        p += UVector3<float>(float(0.6 * way), float(0.5 * way), float(0.62 * way));
    return soup;
}

Soup turnedCopy(Soup soup, double radians)
{
    UBox3<float> const box = boxOf(soup);
    UPoint3<float> const middle = (box.min + box.max) * 0.5f;
    double const c = std::cos(radians), s = std::sin(radians);
    for (auto& p : soup.points) {
        double const x = double(p.X()) - middle.X(), y = double(p.Y()) - middle.Y();
        p = {float(middle.X() + c * x - s * y), float(middle.Y() + s * x + c * y), p.Z()};
    }
    return soup;
}

Soup foldedCopy(Soup soup, std::size_t folds)
{
    std::vector<std::uint32_t> triangleAt(soup.points.size());
    for (std::uint32_t t = 0; t < soup.triangles.size(); ++t)
        for (std::uint32_t const corner : soup.triangles[t])
            triangleAt[corner] = t;
    for (std::size_t i = 0; i < folds; ++i) {
        auto const point = std::uint32_t((2 * i + 1) * soup.points.size() / (2 * folds));
        auto const& corners = soup.triangles[triangleAt[point]];
        std::uint32_t const beside = corners[0] == point ? corners[1] : corners[0];
        soup.points[point] += (soup.points[beside] - soup.points[point]) * 2.5f;
    }
    return soup;
}
