// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/QuickField.h"

#include <algorithm>
#include <cmath>

QuickField::QuickField(Soup const& soup, double margin)
{
    m_facets.reserve(soup.triangles.size());
    for (auto const& corners : soup.triangles) {
        Facet f;
        for (std::size_t k = 0; k < 3; ++k) {
            auto const& p = soup.points[corners[k]];
            f.x[k] = p.X(), f.y[k] = p.Y(), f.z[k] = p.Z();
        }
        for (std::size_t k = 0; k < 3; ++k) {
            std::size_t const l = (k + 1) % 3;
            f.beside[k] = margin * std::hypot(f.x[l] - f.x[k], f.y[l] - f.y[k]);
        }
        UVector3<double> const u(f.x[1] - f.x[0], f.y[1] - f.y[0], f.z[1] - f.z[0]);
        UVector3<double> const v(f.x[2] - f.x[0], f.y[2] - f.y[0], f.z[2] - f.z[0]);
        f.above = margin * (u * v).GetLength();
        m_facets.push_back(f);
    }
}

std::optional<int> QuickField::windingAt(UPoint3<double> const& p) const
{
    int winding = 0;
    for (Facet const& f : m_facets) {
        double x[3], y[3], area[3];
        for (std::size_t k = 0; k < 3; ++k)
            x[k] = f.x[k] - p.X(), y[k] = f.y[k] - p.Y();
        bool isLeft = true, isRight = true, isNear = false;
        for (std::size_t k = 0; k < 3; ++k) {
            std::size_t const l = (k + 1) % 3;
            area[k] = x[k] * y[l] - x[l] * y[k];
            isLeft &= area[k] > -f.beside[k];
            isRight &= area[k] < f.beside[k];
            isNear |= std::abs(area[k]) <= f.beside[k];
        }
        if (!isLeft && !isRight)
            continue;
        if (isNear)
            return {};
        // Six times the volume between the triangle and the point, which lies below it if positive.
        double const volume =
            area[1] * (f.z[0] - p.Z()) + area[2] * (f.z[1] - p.Z()) + area[0] * (f.z[2] - p.Z());
        if (std::abs(volume) <= f.above)
            return {};
        if ((volume > 0) == isLeft)
            winding += isLeft ? 1 : -1;
    }
    return winding;
}
