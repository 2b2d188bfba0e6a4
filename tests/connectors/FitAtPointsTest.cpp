// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PinPlacement.h"
#include "tests/connectors/CutterRun.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

// The judge of pieces of many triangles must see a single connector that is wrong among many.
namespace {

constexpr float gap = 0.05f;
/// 20,000 triangles in walls, which connectors do not touch.
Soup const disc = prism({circle(60, 10000)}, -5, 5);

PinHoleParas manyPins()
{
    PinHoleParas paras;
    paras.radius = 0.8f;
    paras.height = 2;
    paras.spacing = 8;
    paras.sidedistance = 3;
    paras.sideclearance = 0.1f;
    paras.topclearance = 0.3f;
    paras.faceclearance = gap;
    paras.isSidedis = true;
    return paras;
}

class FitAtPoints : public testing::Test
{
protected:
    FitAtPoints()
        : pieces(cutWith<PinHoleCutter>(manyPins(), disc, *planeAt({0, 0, 0}))),
          positions(PinPlacement(manyPins(), frameOf(*planeAt({0, 0, 0})))
                        .computePositions(section->contours, &section->cap))
    {}

    std::string faults() const { return fitFaultsAtPoints(disc, pieces, {0, 0, gap}); }
    /// A small box within a piece's wall or beside it.
    Soup smallBox(float x, float y, float z) const
    {
        return box(0.4f, 0.4f, 0.4f, positions.back() + UPoint3<float>(x, y, z));
    }

    std::unique_ptr<Section> section = sectionOf(disc, *planeAt({0, 0, 0}));
    Pieces pieces;
    std::vector<UPoint3<float>> positions;
};

}  // namespace

TEST_F(FitAtPoints, HoldsForPiecesThatFit)
{
    ASSERT_GE(positions.size(), 40u);
    EXPECT_EQ(faults(), "");
}

TEST_F(FitAtPoints, SeesOnePinThatIsTooThick)
{
    ASSERT_FALSE(positions.empty());
    auto const& at = positions.back();
    for (auto& p : pieces.lower.points)
        if (p.Z() > 0.5f && (p - UPoint3<float>(at.X(), at.Y(), p.Z())).GetLength() < 1)
            p = at + (p - at) * 1.4f;
    EXPECT_NE(faults(), "");
}

TEST_F(FitAtPoints, SeesOneHoleThatIsFilled)
{
    ASSERT_FALSE(positions.empty());
    pieces.upper.append(smallBox(-0.2f, -0.2f, 1));
    EXPECT_NE(faults(), "");
}

TEST_F(FitAtPoints, SeesAHoleThatIsOpen)
{
    pieces.upper.triangles.pop_back();
    EXPECT_NE(faults(), "");
}
