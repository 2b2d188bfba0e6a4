// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/geometry/MellMath.h"
#include "platform/geometry/UBox3.h"
#include "platform/geometry/UPoint2.h"

#include <gtest/gtest.h>

#include <vector>

using Point = UPoint3<float>;
using Vector = UVector3<float>;

TEST(Geometry, PointsAreAPackedArrayOfFloats)
{
    std::vector<Point> points = {{1, 2, 3}, {4, 5, 6}};
    float const* const floats = &points[0].X();
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(floats[i], float(i + 1));
}

TEST(Geometry, PointArithmetic)
{
    EXPECT_EQ(Point(1, 2, 3) + Vector(1, 1, 1), Point(2, 3, 4));
    EXPECT_EQ(Point(1, 2, 3) - Vector(1, 1, 1), Point(0, 1, 2));
    EXPECT_EQ(Point(1, 2, 3) - Point(3, 2, 1), Vector(-2, 0, 2));
    EXPECT_EQ((Point(0, 0, 0) + Point(2, 4, 6)) * 0.5f, Point(1, 2, 3));
    EXPECT_EQ(Point(2, 4, 6) / 2.0f, Point(1, 2, 3));
    EXPECT_EQ(Point(0, 3, 4).Normalize(), Point(0, 0.6f, 0.8f));
    EXPECT_EQ(UPoint2<float>(3, 4) - UPoint2<float>(1, 1), UVector2<float>(2, 3));
}

TEST(Geometry, StarIsTheCrossProductAndBarTheDotProduct)
{
    EXPECT_EQ(Vector(1, 0, 0) * Vector(0, 1, 0), Vector(0, 0, 1));
    EXPECT_EQ((Vector(1, 2, 3) | Vector(4, 5, 6)), 32);
    EXPECT_EQ(Vector(1, 2, 3).Dot(Vector(4, 5, 6)), 32);
}

TEST(Geometry, NormalizingAVectorWorksInPlaceAndLeavesZeroAlone)
{
    Vector v(0, 3, 4);
    v.Normalize();
    EXPECT_EQ(v, Vector(0, 0.6f, 0.8f));
    Vector zero;
    zero.Normalize();
    EXPECT_EQ(zero, Vector());
}

TEST(Geometry, NullBoxStaysNullUntilSomethingIsAdded)
{
    UBox3<float> box;
    EXPECT_TRUE(box.Isnullptr());
    box.Add(UBox3<float>());
    EXPECT_TRUE(box.Isnullptr());
    EXPECT_EQ(box.MinX(), 0);
    EXPECT_EQ(box.MaxZ(), 0);
    UBox3<float> const other({1, 2, 3}, {4, 5, 6});
    box.Add(other);
    EXPECT_EQ(box, other);
    box.SetNull();
    EXPECT_TRUE(box.Isnullptr());
}

TEST(Geometry, BoxGrowsToIncludeAnother)
{
    UBox3<float> box({0, 0, 0}, {1, 1, 1});
    box.Add(UBox3<float>({-1, 0.5f, 2}, {0.5f, 3, 4}));
    EXPECT_EQ(box, UBox3<float>({-1, 0, 0}, {1, 3, 4}));
}

TEST(Geometry, MatrixMovesPointsFromEitherSide)
{
    float const values[16] = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1};
    UMatrix4<float> const matrix(values);
    EXPECT_EQ(matrix * Point(1, 2, 3), Point(8, 21, 33));
    EXPECT_EQ(Point(1, 2, 3) * matrix, Point(8, 21, 33));
    EXPECT_TRUE(UMatrix4<float>().isIdentity());
    EXPECT_FALSE(matrix.isIdentity());
}

TEST(Geometry, DistanceFromASegmentCountsItsEnds)
{
    using Math = MellMath<float>;
    EXPECT_EQ(Math::DisPt2Pt({0, 0, 0}, {0, 3, 4}), 5);
    EXPECT_EQ(Math::DisPt2Segment({5, 2, 0}, {0, 0, 0}, {10, 0, 0}), 2);
    EXPECT_EQ(Math::DisPt2Segment({13, 4, 0}, {0, 0, 0}, {10, 0, 0}), 5);
    EXPECT_EQ(Math::DisPt2Segment({-3, 4, 0}, {0, 0, 0}, {10, 0, 0}), 5);
    EXPECT_EQ(Math::DisPt2Segment({3, 4, 0}, {0, 0, 0}, {0, 0, 0}), 5);
}
