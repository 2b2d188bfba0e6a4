// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/connectors/CutterRun.h"

#include "platform/services/Intersect.h"

#include <algorithm>

namespace {

/// Crossings of the line parallel to one axis through (u, v) in the other two.
std::vector<float> crossings(Soup const& soup, int axis, double u, double v)
{
    int const first = (axis + 1) % 3, second = (axis + 2) % 3;
    std::vector<float> result;
    for (auto const& t : soup.triangles) {
        double weight[3], sum = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            auto const& p = soup.points[t[(i + 1) % 3]];
            auto const& q = soup.points[t[(i + 2) % 3]];
            weight[i] = (p[first] - u) * (q[second] - v) - (q[first] - u) * (p[second] - v);
            sum += weight[i];
        }
        bool const isInside = std::all_of(weight, weight + 3, [&](double w) { return w > 0; }) ||
                              std::all_of(weight, weight + 3, [&](double w) { return w < 0; });
        if (!isInside)
            continue;
        double place = 0;
        for (std::size_t i = 0; i < 3; ++i)
            place += weight[i] / sum * soup.points[t[i]][axis];
        result.push_back(float(place));
    }
    std::sort(result.begin(), result.end());
    return result;
}

}  // namespace

std::vector<float> crossingsAlongZ(Soup const& soup, float x, float y)
{
    return crossings(soup, 2, x, y);
}

std::vector<float> crossingsAlongX(Soup const& soup, float y, float z)
{
    return crossings(soup, 0, y, z);
}

double commonVolume(Soup const& a, Soup const& b)
{
    MeshKernel common;
    std::vector<MeshKernel*> out{&common};
    Intersect::boolean(kernelOf(a).get(), kernelOf(b).get(), out, Intersect::BOOLEAN_INTERSECT, {},
                       1);
    return volumeOf(soupOf(common));
}
