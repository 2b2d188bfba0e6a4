// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/Transforms.h"

QMatrix4x4 toQt(UMatrix4<float> const& matrix)
{
    // Qt's constructor takes rows.
    return QMatrix4x4(matrix.data()).transposed();
}

PickTree::Ray placedBack(PickTree::Ray const& ray, UMatrix4<float> const& matrix)
{
    using Vector = UVector3<double>;
    auto const column = [&](int c) { return Vector(matrix(0, c), matrix(1, c), matrix(2, c)); };
    // By Cramer's rule.
    Vector const x = column(0), y = column(1), z = column(2);
    double const determinant = x | (y * z);
    if (determinant == 0)
        return {ray.origin, {}};
    auto const solved = [&](Vector const& v) {
        return Vector(v | (y * z), v | (z * x), v | (x * y)) / determinant;
    };
    Vector const start = ray.origin - (UPoint3<double>() + column(3));
    PickTree::Ray local = ray;
    local.origin = UPoint3<double>(solved(start));
    local.direction = solved(ray.direction);
    return local;
}
