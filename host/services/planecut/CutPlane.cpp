// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/CutPlane.h"

#include "host/mesh/ExactSigns.h"
#include "host/mesh/RoundingUnit.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>

#include <algorithm>

CutPlane::CutPlane(MeshKernel const& planeKernel)
{
    auto const mesh = planeKernel.readMesh();
    if (mesh->triangles.empty())
        throw Mell::Exception(
            QCoreApplication::translate("Services", "The cutting plane is empty. Place it again.")
                .toStdString());
    for (int i = 0; i < 3; ++i)
        m_corners[std::size_t(i)] = planeKernel.getMatrix() * mesh->triangles[0]->cP(i);
    double u[3], v[3], magnitude[3];
    for (int i = 0; i < 3; ++i) {
        m_origin[i] = m_corners[0][i];
        u[i] = double(m_corners[1][i]) - m_corners[0][i];
        v[i] = double(m_corners[2][i]) - m_corners[0][i];
    }
    for (int i = 0; i < 3; ++i) {
        int const j = (i + 1) % 3;
        int const k = (i + 2) % 3;
        m_normal[i] = u[j] * v[k] - u[k] * v[j];
        magnitude[i] = std::abs(u[j] * v[k]) + std::abs(u[k] * v[j]);
    }
    m_dropped = int(std::max_element(m_normal, m_normal + 3,
                                     [](double a, double b) { return std::abs(a) < std::abs(b); }) -
                    m_normal);
    double const largest = m_normal[m_dropped];
    if (!(std::abs(largest) > 0) || !std::isfinite(largest))
        throw Mell::Exception(QCoreApplication::translate(
                                  "Services", "The cutting plane has no area. Place it again.")
                                  .toStdString());
    m_length = std::hypot(m_normal[0], m_normal[1], m_normal[2]);
    m_upSign = largest > 0 ? 1 : -1;
    m_first = (m_dropped + (m_upSign > 0 ? 1 : 2)) % 3;
    m_second = (m_dropped + (m_upSign > 0 ? 2 : 1)) % 3;
    m_level = m_corners[0][m_dropped];
    m_isAxisParallel = u[m_dropped] == 0 && v[m_dropped] == 0;
    setDoubt(magnitude);
    for (UTriangle<float> const* const triangle : mesh->triangles) {
        auto& corners = m_triangles.emplace_back();
        for (int i = 0; i < 3; ++i)
            corners[std::size_t(i)] = planeKernel.getMatrix() * triangle->cP(i);
    }
}

void CutPlane::setDoubt(double const (&magnitude)[3])
{
    // Three subtractions, two levels of products and sums: the rounding errors stay below this
    // multiple of the sum of magnitudes.
    constexpr double errorFactor = 16 * 1.1102230246251565e-16;
    // At least what a unit is to its coordinate.
    constexpr double unitFactor = 1.001 * 0x1p-23;
    double size = 0;
    for (UPoint3<float> const& corner : m_corners) {
        m_cornerUnit = std::max(m_cornerUnit, roundingUnitAt(corner));
        for (int i = 0; i < 3; ++i)
            size = std::max(size, double(std::fabs(corner[i])));
    }
    m_doubt = m_length * (m_cornerUnit + unitFactor * size);
    for (int i = 0; i < 3; ++i)
        m_doubtPerOffset[i] = errorFactor * magnitude[i] + unitFactor * m_length;
}

bool CutPlane::isWithinRounding(UPoint3<float> const& p) const
{
    return distanceOf(p) <= std::max(m_cornerUnit, roundingUnitAt(p));
}

int CutPlane::exactSideOf(UPoint3<float> const& p) const
{
    return ExactSigns::orient3d(m_corners[0], m_corners[1], m_corners[2], p);
}

double CutPlane::heightOf(UPoint3<float> const& p) const
{
    return m_normal[0] * (p.X() - m_origin[0]) + m_normal[1] * (p.Y() - m_origin[1]) +
           m_normal[2] * (p.Z() - m_origin[2]);
}

UPoint3<float> CutPlane::crossing(UPoint3<float> const& below, UPoint3<float> const& above) const
{
    double const low =
        m_isAxisParallel ? m_upSign * (double(below[m_dropped]) - m_level) : heightOf(below);
    double const high =
        m_isAxisParallel ? m_upSign * (double(above[m_dropped]) - m_level) : heightOf(above);
    double const span = high - low;
    // The signs are exact, the heights are not: next to the plane they may vanish or turn.
    double const t = span > 0 ? std::clamp(-low / span, 0.0, 1.0) : 0.5;
    // The third coordinate follows from the other two, so that two edges that meet the plane in one
    // place have one point.
    auto const between = [&](int i) { return float(below[i] + t * (double(above[i]) - below[i])); };
    return lift({between(m_first), between(m_second)});
}

UPoint3<float> CutPlane::lift(std::array<double, 2> const& p) const
{
    UPoint3<float> point;
    point[m_first] = float(p[0]);
    point[m_second] = float(p[1]);
    double const rest = m_normal[m_first] * (p[0] - m_origin[m_first]) +
                        m_normal[m_second] * (p[1] - m_origin[m_second]);
    point[m_dropped] =
        m_isAxisParallel ? m_level : float(m_origin[m_dropped] - rest / m_normal[m_dropped]);
    return point;
}

int CutPlane::facing(UPoint3<float> const& a, UPoint3<float> const& b,
                     UPoint3<float> const& c) const
{
    return m_upSign * ExactSigns::orient2d(a, b, c, m_dropped);
}

bool CutPlane::covers(UPoint3<float> const& p) const
{
    return std::any_of(m_triangles.begin(), m_triangles.end(), [&](auto const& t) {
        int turns[3];
        for (std::size_t i = 0; i < 3; ++i)
            turns[i] = ExactSigns::orient2d(t[i], t[(i + 1) % 3], p, m_dropped);
        bool const isLeft = std::all_of(turns, turns + 3, [](int turn) { return turn >= 0; });
        bool const isRight = std::all_of(turns, turns + 3, [](int turn) { return turn <= 0; });
        return isLeft || isRight;
    });
}

bool CutPlane::reaches(UPoint3<float> const& a, UPoint3<float> const& b) const
{
    if (covers(a) || covers(b))
        return true;
    auto const turn = [this](UPoint3<float> const& p, UPoint3<float> const& q,
                             UPoint3<float> const& r) {
        return ExactSigns::orient2d(p, q, r, m_dropped);
    };
    return std::any_of(m_triangles.begin(), m_triangles.end(), [&](auto const& t) {
        for (std::size_t i = 0; i < 3; ++i) {
            UPoint3<float> const &from = t[i], &to = t[(i + 1) % 3];
            if (turn(from, to, a) * turn(from, to, b) < 0 && turn(a, b, from) * turn(a, b, to) <= 0)
                return true;
        }
        return false;
    });
}

UVector3<float> CutPlane::unitNormal() const
{
    return {float(m_normal[0] / m_length), float(m_normal[1] / m_length),
            float(m_normal[2] / m_length)};
}
