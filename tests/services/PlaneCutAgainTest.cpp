// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/services/CutFamilies.h"
#include "tests/support/MadeModels.h"
#include "tests/support/Rounds.h"
#include "tests/support/SurfaceEdges.h"

#include <gtest/gtest.h>

#include <random>

// The face of a piece that an oblique plane has made lies in it to the nearest float only: its
// points are above, below and in the plane by turns. A second cut there has ridges all over it.
namespace {

/// Oblique planes across a part.
class ObliquePlanes
{
public:
    ObliquePlanes(Soup const& part, unsigned seed) : m_random(seed)
    {
        for (auto const& p : part.points)
            m_box.Add(p);
    }

    NamedPlane next()
    {
        UPoint3<float> centre;
        for (int k = 0; k < 3; ++k)
            centre[k] = m_box.min[k] + (m_box.max[k] - m_box.min[k]) * (0.5f + 0.3f * share());
        UVector3<float> normal(share(), share(), share());
        normal.Normalize();
        return {"oblique", centre, normal};
    }

private:
    float share() { return float(m_random() * 0x1p-32) * 2 - 1; }

    std::mt19937 m_random;
    UBox3<float> m_box;
};

void expectClosedPieces(Soup const& part, NamedPlane const& plane, std::string const& name)
{
    auto const outcome = cut(part, plane.centre, plane.normal);
    for (MeshKernel const* const piece : {&outcome->above, &outcome->below}) {
        judge::SurfaceEdges const edges = judge::edgesOf(soupOf(*piece));
        EXPECT_TRUE(edges.isClosed())
            << name << ", " << (piece == &outcome->above ? "above" : "below") << ": "
            << edges.crowdedPaired << " edges of four";
    }
}

/// Cuts both pieces of a part again where the first cut went: by the same plane, from behind, and
/// by planes that floats hardly tell from it.
void expectCutsAgainClosed(Soup const& part, NamedPlane const& plane, std::string const& name)
{
    SCOPED_TRACE(name);
    auto const first = cut(part, plane.centre, plane.normal);
    for (MeshKernel const* const kernel : {&first->above, &first->below}) {
        Soup const piece = soupOf(*kernel);
        if (piece.triangles.empty())
            continue;
        expectClosedPieces(piece, plane, "the same");
        expectClosedPieces(piece, {"", plane.centre, -plane.normal}, "from behind");
        for (float const shift : {2e-6f, -2e-6f, 1e-5f, -1e-5f})
            expectClosedPieces(piece, {"", plane.centre + plane.normal * shift, plane.normal},
                               "shifted by " + std::to_string(shift));
    }
}

}  // namespace

TEST(PlaneCut, ClosesPiecesThatAreCutAgainInTheirOwnFace)
{
    expectCutsAgainClosed(torus(20, 7, 90, 60), {"", {1, 2, 0.5f}, {0.3f, -0.5f, 1}}, "torus");
    std::vector<NamedSoup> parts{{"torus", torus(20, 7, 90, 60)},
                                 {"tube", tube(20, 15, 30, 60)},
                                 {"head", scannedHead(20)},
                                 {"plate", mechanicalPlate()},
                                 {"flange", turnedFlange()}};
    for (auto const& [name, part] : parts) {
        ObliquePlanes planes(part, 1);
        for (int i = 0; i < rounds(12); ++i)
            expectCutsAgainClosed(part, planes.next(), name + " " + std::to_string(i));
    }
}
