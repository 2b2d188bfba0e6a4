// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PartPlacement.h"
#include "host/mesh/FlatFaces.h"
#include "tests/app/PartDocument.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace {

using PartPlacement::Parts;

class LayFlat : public testing::Test
{
protected:
    UVector3<float> sizeOf(Mesh::DocumentObject const* part) const
    {
        UBox3<float> const box = part->getBoundingBox();
        return box.max - box.min;
    }
    bool lay(Mesh::DocumentObject* part)
    {
        return PartPlacement::layOnLargestFace(*test.document, {part}, left);
    }
    /// Turned by any angle about any axis, and moved.
    void turnAtRandom(Mesh::DocumentObject* part)
    {
        std::uniform_real_distribution<float> share(-1, 1);
        part->rotate({1, 2, 3}, 4 * share(random), {share(random), share(random), share(random)},
                     false);
        part->translate({30 * share(random), 30 * share(random), 30 * share(random)}, 0);
    }

    TestDocument test;
    Parts left;
    std::mt19937 random{7};
};

/// A cone with a flat bottom of 20 mm and a tip 30 mm above it, that points along z.
Soup pointedSolid()
{
    Soup soup = cylinder(10, 30, 40);
    for (auto& p : soup.points)
        if (p[2] > 15)
            p[0] *= 0.1f, p[1] *= 0.1f;
    return soup;
}

}  // namespace

TEST_F(LayFlat, PutsTheLargestFaceDownHoweverThePartLies)
{
    for (int i = 0; i < 40; ++i) {
        Mesh::DocumentObject* const part = test.add(box(4, 20, 30), "slab");
        turnAtRandom(part);
        ASSERT_TRUE(lay(part));
        EXPECT_NEAR(sizeOf(part).Z(), 4, 1e-4) << i;
        EXPECT_NEAR(part->getBoundingBox().MinZ(), 0, 1e-5) << i;
        EXPECT_TRUE(left.empty());
    }
}

TEST_F(LayFlat, KnowsWhichEndOfAPartIsFlat)
{
    for (bool const isMirrored : {false, true}) {
        Mesh::DocumentObject* const part = test.add(pointedSolid(), "cone");
        if (isMirrored)
            part->mirror({}, {0, 0, 1});
        turnAtRandom(part);
        ASSERT_TRUE(lay(part));
        EXPECT_NEAR(sizeOf(part).Z(), 30, 1e-3);
        // The wide end is down: the corners at the plate lie 10 mm from the axis.
        UMatrix4<float> const matrix = part->getMatrix();
        UPoint3<float> const wide = matrix * UPoint3<float>(0, 0, 0);
        UPoint3<float> const tip = matrix * UPoint3<float>(0, 0, 30);
        EXPECT_LT(std::abs(wide.Z()), 1e-3);
        EXPECT_NEAR(tip.Z(), 30, 1e-3);
    }
}

TEST_F(LayFlat, LeavesRoundPartsAndTellsWhich)
{
    Mesh::DocumentObject* const ball = test.add(sphere(10, 40, 40), "ball");
    UMatrix4<float> const placed = ball->getMatrix();
    EXPECT_FALSE(lay(ball));
    EXPECT_EQ(left, Parts{ball});
    EXPECT_EQ(ball->getMatrix(), placed);
    EXPECT_TRUE(test.document->undoNames().empty());
}

TEST_F(LayFlat, IsOneStepForAllAndNoneForWhatLiesFlat)
{
    Mesh::DocumentObject* const a = test.add(box(4, 20, 30), "a");
    Mesh::DocumentObject* const b = test.add(box(5, 20, 30, {50, 0, 7}), "b");
    EXPECT_TRUE(PartPlacement::layOnLargestFace(*test.document, {a, b}, left));
    EXPECT_EQ(test.document->undoNames(), std::vector<std::string>{"Lay Flat"});
    EXPECT_FALSE(PartPlacement::layOnLargestFace(*test.document, {a, b}, left));
    test.document->undo();
    EXPECT_EQ(sizeOf(a).Z(), 30);
    EXPECT_EQ(b->getBoundingBox().MinZ(), 7);
}

TEST_F(LayFlat, TakesAnyDirectionDownToTheOppositeOne)
{
    Mesh::DocumentObject* const part = test.add(box(4, 20, 30), "part");
    UVector3<double> const directions[] = {
        {0, 0, 5}, {1, 0, 0}, {0, -2, 0}, {1e-7, 0, 1}, {0.3, -0.4, 0.6}};
    for (UVector3<double> const& down : directions) {
        part->setMatrix({}, true, true);
        UMatrix4<float> const before = part->getMatrix();
        ASSERT_TRUE(PartPlacement::layDown(*test.document, {{part, down}}));
        UMatrix4<float> const after = part->getMatrix();
        double const length = down.GetLength();
        for (int row = 0; row < 3; ++row) {
            double sum = 0;
            for (int i = 0; i < 3; ++i)
                sum += double(after(row, i)) * down[i] / length;
            EXPECT_NEAR(sum, row == 2 ? -1 : 0, 1e-6);
        }
        EXPECT_GT(after.linearDeterminant(), 0.99f);
        EXPECT_EQ(before, UMatrix4<float>());
    }
    EXPECT_FALSE(PartPlacement::layDown(*test.document, {{part, {0, 0, 0}}}));
}

TEST_F(LayFlat, StandingFacesAreThoseNothingLiesBeyond)
{
    // A table upside down: the plane between the legs is the largest, but no part can lie on it.
    Soup table = box(30, 30, 2);
    auto const faces = [&](Soup const& soup) { return standingFaces(*kernelOf(soup)); };
    ASSERT_EQ(faces(table).size(), 6u);
    EXPECT_NEAR(faces(table)[0].area, 900, 1e-3);
    Soup legs = table;
    for (UPoint3<float> const place : {UPoint3<float>(0, 0, 2), UPoint3<float>(28, 0, 2),
                                       UPoint3<float>(0, 28, 2), UPoint3<float>(28, 28, 2)})
        legs.append(box(2, 2, 20, place));
    auto const found = faces(legs);
    ASSERT_FALSE(found.empty());
    EXPECT_NEAR(found[0].normal.Z(), -1, 1e-9);
    for (FlatFace const& face : found)
        EXPECT_FALSE(face.normal.Z() > 0.5 && face.area > 100);
}

TEST_F(LayFlat, OfAPartThatLiesFlatAlreadyChangesNothing)
{
    for (int i = 0; i < 20; ++i) {
        Mesh::DocumentObject* const part = test.add(box(4, 20, 30), "slab");
        turnAtRandom(part);
        ASSERT_TRUE(lay(part));
        UMatrix4<float> const placed = part->getMatrix();
        EXPECT_FALSE(lay(part)) << i;
        EXPECT_EQ(part->getMatrix(), placed);
    }
}
