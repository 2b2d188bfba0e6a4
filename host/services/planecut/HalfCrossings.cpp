// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/planecut/HalfCrossings.h"

#include "host/mesh/DegenerateTriangles.h"
#include "host/services/TrianglePair.h"
#include "host/services/boolean/BoxCells.h"

HalfCrossings::HalfCrossings(std::vector<HalfTriangle> const& made,
                             std::vector<std::size_t> const& some, bool areCapsExact)
    : m_made(made), m_areCapsExact(areCapsExact)
{
    TriangleTree::Box bounds;
    for (std::size_t const i : some)
        if (canCross(i) && !isFlat(i)) {
            m_some.push_back({boxOf(*made[i].record), i});
            bounds.add(m_some.back().box);
        }
    BoxCells cells(bounds);
    for (Place const& place : m_some)
        cells.add(place.box);
    for (std::size_t i = 0; i < made.size() && !m_some.empty(); ++i)
        if (TriangleTree::Box const box = boxOf(*made[i].record);
            canCross(i) && cells.areMetBy(box))
            m_near.push_back({box, i});
}

std::vector<HalfTriangle> HalfCrossings::near() const
{
    std::vector<HalfTriangle> triangles;
    triangles.reserve(m_near.size());
    for (Place const& place : m_near)
        triangles.push_back(m_made[place.triangle]);
    return triangles;
}

HalfRecords HalfCrossings::run(StageProgress& progress)
{
    HalfRecords crossing;
    for (Place const& a : m_some) {
        progress.add(0);
        for (Place const& b : m_near)
            if (a.box.overlaps(b.box) && doCross(a.triangle, b.triangle)) {
                crossing.insert(m_made[a.triangle].record);
                crossing.insert(m_made[b.triangle].record);
            }
    }
    return crossing;
}

bool HalfCrossings::isFlat(std::size_t i) const
{
    UTriangle<float> const& t = *m_made[i].record;
    return isDegenerate(t.cP(0), t.cP(1), t.cP(2));
}

bool HalfCrossings::doCross(std::size_t i, std::size_t k)
{
    if (m_made[i].side != m_made[k].side || i == k || isFlat(k))
        return false;
    for (std::size_t c = 0; c < 3; ++c) {
        m_pair.points[c] = m_made[i].record->cP(int(c));
        m_pair.points[c + 3] = m_made[k].record->cP(int(c));
    }
    return doTrianglesMeet(m_pair, 0, 1);
}
