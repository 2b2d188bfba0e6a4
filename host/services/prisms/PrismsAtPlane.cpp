// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/prisms/PrismsAtPlane.h"

#include "host/services/prisms/EdgeBalance.h"

#include <cmath>

PrismsAtPlane::PrismsAtPlane(MeshArrays const& prisms, CutPlane const& plane,
                             PlaneCoordinates const& coordinates, int side)
    : m_isTip(prisms.points.size()),
      m_tipOf(prisms.points.size(), none),
      m_numbers(prisms.points.size(), none)
{
    for (std::size_t i = 0; i < prisms.points.size(); ++i)
        m_isTip[i] = plane.sideOf(prisms.points[i]) == side;
    if (!findTips(prisms, coordinates))
        return;
    addPoints(prisms, plane, side);
    addTriangles(prisms);
    m_isValid = !outline.empty() && isClosed();
}

int PrismsAtPlane::tipsOf(MeshArrays::Corners const& corners) const
{
    return isTip(corners[0]) + isTip(corners[1]) + isTip(corners[2]);
}

/// Each wall triangle has one edge along the normal: the shorter way, seen along it, from its single
/// corner at one end to the other end.
bool PrismsAtPlane::findTips(MeshArrays const& prisms, PlaneCoordinates const& coordinates)
{
    auto const gap = [&](std::uint32_t a, std::uint32_t b) {
        auto const p = coordinates.placeOf(prisms.points[a]);
        auto const q = coordinates.placeOf(prisms.points[b]);
        return std::hypot(p[0] - q[0], p[1] - q[1]);
    };
    for (MeshArrays::Corners const& corners : prisms.triangles) {
        int const tips = tipsOf(corners);
        if (tips == 0 || tips == 3)
            continue;
        std::size_t single = 0;
        while (isTip(corners[single]) != (tips == 1))
            ++single;
        std::uint32_t const one = corners[single];
        std::uint32_t other = corners[(single + 1) % 3];
        if (gap(one, corners[(single + 2) % 3]) < gap(one, other))
            other = corners[(single + 2) % 3];
        std::uint32_t const foot = tips == 1 ? other : one, tip = tips == 1 ? one : other;
        if (m_tipOf[foot] != none && m_tipOf[foot] != tip)
            return false;
        m_tipOf[foot] = tip;
    }
    for (MeshArrays::Corners const& corners : prisms.triangles)
        for (std::uint32_t const corner : corners)
            if (tipsOf(corners) % 3 != 0 && !isTip(corner) && m_tipOf[corner] == none)
                return false;
    return true;
}

void PrismsAtPlane::addPoints(MeshArrays const& prisms, CutPlane const& plane, int side)
{
    for (std::uint32_t i = 0; i < prisms.points.size(); ++i) {
        if (m_tipOf[i] == none)
            continue;
        UPoint3<float> const &foot = prisms.points[i], &tip = prisms.points[m_tipOf[i]];
        m_numbers[i] = std::uint32_t(points.size());
        points.push_back(plane.sideOf(foot) == 0 ? foot
                         : side > 0              ? plane.crossing(foot, tip)
                                                 : plane.crossing(tip, foot));
        m_isExact = m_isExact && plane.project(points.back()) == plane.project(tip);
    }
    outlinePoints = std::uint32_t(points.size());
    for (std::uint32_t i = 0; i < prisms.points.size(); ++i)
        if (isTip(i)) {
            m_numbers[i] = std::uint32_t(points.size());
            points.push_back(prisms.points[i]);
        }
}

void PrismsAtPlane::addTriangles(MeshArrays const& prisms)
{
    for (int const tips : {1, 2, 3}) {
        if (tips == 3)
            firstTip = triangles.size();
        for (MeshArrays::Corners const& corners : prisms.triangles) {
            if (tipsOf(corners) != tips)
                continue;
            triangles.push_back(
                {m_numbers[corners[0]], m_numbers[corners[1]], m_numbers[corners[2]]});
            for (std::size_t k = 0; k < 3 && tips == 1; ++k)
                if (!isTip(corners[k]) && !isTip(corners[(k + 1) % 3]))
                    outline.push_back({m_numbers[corners[k]], m_numbers[corners[(k + 1) % 3]]});
        }
    }
}

bool PrismsAtPlane::isClosed() const
{
    EdgeBalance edges;
    for (MeshArrays::Corners const& corners : triangles)
        edges.addTriangle(corners);
    for (auto const& [from, to] : outline)
        edges.add(to, from);
    return edges.isClosed();
}
