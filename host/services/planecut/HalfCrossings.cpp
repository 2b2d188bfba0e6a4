// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/HalfCrossings.h"

#include "host/mesh/DegenerateTriangles.h"
#include "host/services/TrianglePair.h"
#include "host/services/boolean/BoxCells.h"

#include <algorithm>

HalfCrossings::HalfCrossings(VisitAll const& visitAll, SectionPoints const& points,
                             std::vector<bool> const& isAsked, bool areCapsExact)
    : m_points(points)
{
    auto const canCross = [&](HalfTriangle const& t) { return !areCapsExact || !t.isCap(); };
    auto const isAskedAbout = [&](HalfTriangle const& t) {
        return std::any_of(t.corners.begin(), t.corners.end(), [&](HalfCorner const& corner) {
            return corner.isPoint() && isAsked[corner.point];
        });
    };
    std::vector<TriangleTree::Box> boxes;
    TriangleTree::Box bounds;
    visitAll([&](HalfTriangle const& triangle) {
        if (!canCross(triangle) || !isAskedAbout(triangle) || isFlat(triangle))
            return;
        boxes.push_back(boxOf(triangle, points));
        bounds.add(boxes.back());
    });
    if (boxes.empty())
        return;
    BoxCells cells(bounds);
    for (TriangleTree::Box const& box : boxes)
        cells.add(box);
    visitAll([&](HalfTriangle const& triangle) {
        if (!canCross(triangle))
            return;
        TriangleTree::Box const box = boxOf(triangle, points);
        if (!cells.areMetBy(box))
            return;
        if (isAskedAbout(triangle) && !isFlat(triangle))
            m_asked.push_back(m_near.size());
        m_boxes.push_back(box);
        m_near.push_back(triangle);
    });
}

std::vector<std::size_t> HalfCrossings::run(StageProgress& progress)
{
    std::vector<std::size_t> crossing;
    for (std::size_t const i : m_asked) {
        progress.add(0);
        for (std::size_t k = 0; k < m_boxes.size(); ++k)
            if (m_boxes[i].overlaps(m_boxes[k]) && doCross(i, k)) {
                crossing.push_back(i);
                crossing.push_back(k);
            }
    }
    return crossing;
}

bool HalfCrossings::isFlat(HalfTriangle const& triangle) const
{
    return isDegenerate(triangle.corners[0].placeAmong(m_points),
                        triangle.corners[1].placeAmong(m_points),
                        triangle.corners[2].placeAmong(m_points));
}

bool HalfCrossings::doCross(std::size_t i, std::size_t k)
{
    if (m_near[i].side != m_near[k].side || i == k || isFlat(m_near[k]))
        return false;
    for (std::size_t c = 0; c < 3; ++c) {
        m_pair.points[c] = m_near[i].corners[c].placeAmong(m_points);
        m_pair.points[c + 3] = m_near[k].corners[c].placeAmong(m_points);
    }
    return doTrianglesMeet(m_pair, 0, 1);
}
