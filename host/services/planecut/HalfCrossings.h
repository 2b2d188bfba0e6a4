// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/StageProgress.h"
#include "host/services/planecut/HalfTriangles.h"

#include <cstddef>
#include <vector>

/// Looks for crossings of some triangles of the halves with others of their half, box by box: fast
/// while they are few.
class HalfCrossings
{
public:
    /// some          places in `made`
    /// areCapsExact  the caps lie in the plane, so that nothing but walls can cross
    HalfCrossings(std::vector<HalfTriangle> const& made, std::vector<std::size_t> const& some,
                  bool areCapsExact);

    /// How many tests of two boxes it takes.
    std::size_t effort() const { return m_some.size() * m_near.size(); }

    /// Those that can cross, and may overlap one of them; they among them.
    std::vector<HalfTriangle> near() const;

    /// All that cross.
    HalfRecords run(StageProgress& progress);

private:
    struct Place
    {
        TriangleTree::Box box;
        std::size_t triangle;
    };

    bool canCross(std::size_t i) const { return !m_areCapsExact || !m_made[i].isCap(); }
    bool isFlat(std::size_t i) const;
    bool doCross(std::size_t i, std::size_t k);

    std::vector<HalfTriangle> const& m_made;
    bool m_areCapsExact;
    std::vector<Place> m_some;
    /// All that may overlap one of them.
    std::vector<Place> m_near;
    MeshArrays m_pair{std::vector<UPoint3<float>>(6), {{0, 1, 2}, {3, 4, 5}}};
};
