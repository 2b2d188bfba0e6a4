// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/LineRotation.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

void rotateArbitraryLine(double matrix[4][4], UPoint3<double> const& from,
                         UPoint3<double> const& to, double angleRadians)
{
    double const a = from.X(), b = from.Y(), c = from.Z();
    UVector3<double> const direction = to - from;
    double const u = direction.X(), v = direction.Y(), w = direction.Z();
    double const cosine = std::cos(angleRadians), sine = std::sin(angleRadians);
    double const k = 1 - cosine;
    double const uu = u * u, vv = v * v, ww = w * w;
    double const rows[4][4] = {
        {uu + (vv + ww) * cosine, u * v * k + w * sine, u * w * k - v * sine, 0},
        {u * v * k - w * sine, vv + (uu + ww) * cosine, v * w * k + u * sine, 0},
        {u * w * k + v * sine, v * w * k - u * sine, ww + (uu + vv) * cosine, 0},
        {(a * (vv + ww) - u * (b * v + c * w)) * k + (b * w - c * v) * sine,
         (b * (uu + ww) - v * (a * u + c * w)) * k + (c * u - a * w) * sine,
         (c * (uu + vv) - w * (a * u + b * v)) * k + (a * v - b * u) * sine, 1}};
    std::copy_n(&rows[0][0], 16, &matrix[0][0]);
}

UPoint3<double> timesRowMatrix(UPoint3<double> const& point, double const matrix[4][4])
{
    auto const component = [&](int column) {
        return point.X() * matrix[0][column] + point.Y() * matrix[1][column] +
               point.Z() * matrix[2][column] + matrix[3][column];
    };
    return {component(0), component(1), component(2)};
}

}  // namespace Freecut
