// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/planecut/HalfTriangles.h"

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

/// Looks for crossings of some triangles of the halves with others of their half, box by box: fast
/// while they are few. Triangles without an area do not cross.
class HalfCrossings
{
public:
    /// Gives all triangles of the halves, in the same order each time.
    using VisitAll = std::function<void(VisitHalfTriangle const&)>;

    /// isAsked       by section point: triangles at one of these are
    /// areCapsExact  the caps lie in the plane, so that nothing but walls can cross
    HalfCrossings(VisitAll const& visitAll, SectionPoints const& points,
                  std::vector<bool> const& isAsked, bool areCapsExact);

    /// How many tests of two boxes it takes.
    std::size_t effort() const { return m_asked.size() * m_near.size(); }

    /// Those that can cross, and may overlap one that is asked about; these among them.
    std::vector<HalfTriangle> const& near() const { return m_near; }
    std::vector<HalfTriangle> takeNear() { return std::move(m_near); }

    /// All that cross, by place in near().
    std::vector<std::size_t> run(StageProgress& progress);

private:
    bool isFlat(HalfTriangle const& triangle) const;
    bool doCross(std::size_t i, std::size_t k);

    SectionPoints const& m_points;
    std::vector<HalfTriangle> m_near;
    /// As m_near.
    std::vector<TriangleTree::Box> m_boxes;
    /// Those asked about, by place in m_near.
    std::vector<std::size_t> m_asked;
    MeshArrays m_pair{std::vector<UPoint3<float>>(6), {{0, 1, 2}, {3, 4, 5}}};
};
