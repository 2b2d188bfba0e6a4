// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Crossings.h"
#include "tests/support/MadeModels.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace {

UBox3<float> boxOf(Soup const& soup)
{
    UBox3<float> box;
    for (auto const& p : soup.points)
        box.Add(p);
    return box;
}

}  // namespace

TEST(MadeModels, AreClosedManifoldsThatNowhereCrossThemselves)
{
    for (MadeModel const& model : madeModels()) {
        SCOPED_TRACE(model.name);
        EXPECT_EQ(manifoldFaults(model.soup), "");
        EXPECT_EQ(judge::crossingsOf(model.soup).total(), 0u);
        EXPECT_GT(volumeOf(model.soup), 1000);
        EXPECT_EQ(componentsOf(model.soup), 1u);
    }
}

TEST(MadeModels, StandOnTheirGroundAndAreFortyMillimetresHigh)
{
    for (MadeModel const& model : madeModels()) {
        SCOPED_TRACE(model.name);
        EXPECT_NEAR(boxOf(model.soup).MinZ(), 0, 3);
        EXPECT_GT(boxOf(model.soup).MaxZ(), 40);
    }
}

TEST(MadeModels, HaveTheGenusOfTheirKind)
{
    std::map<std::string, long> const expected{{"mechanical plate", 2 - 2 * 8},
                                               {"turned flange", 0},
                                               {"twisted vase", 2},
                                               {"scanned head", 2},
                                               {"branched figure", 2}};
    ASSERT_EQ(madeModels().size(), expected.size());
    for (MadeModel const& model : madeModels())
        EXPECT_EQ(eulerNumberOf(model.soup), expected.at(model.name)) << model.name;
}

TEST(MadeModels, HaveTrianglesOfEveryKind)
{
    EXPECT_EQ(scannedHead(150).triangles.size(), 270000u);
    std::size_t most = 0, least = 1000000;
    double longest = 0;
    for (MadeModel const& model : madeModels()) {
        most = std::max(most, model.soup.triangles.size());
        least = std::min(least, model.soup.triangles.size());
        for (auto const& t : model.soup.triangles)
            for (std::size_t k = 0; k < 3; ++k)
                longest = std::max<double>(
                    longest,
                    (model.soup.points[t[k]] - model.soup.points[t[(k + 1) % 3]]).GetLength());
    }
    EXPECT_GT(most, 20000u);
    EXPECT_LT(least, 2000u);
    EXPECT_GT(longest, 50);
}

TEST(MadeModels, TheCrossingFigureCrossesItselfAndIsClosed)
{
    Soup const figure = crossingFigure();
    EXPECT_EQ(manifoldFaults(figure), "");
    EXPECT_EQ(componentsOf(figure), 2u);
    EXPECT_GT(judge::crossingsOf(figure).pairs, 100u);
}

TEST(MadeModels, AreTheSameEachTime)
{
    auto const first = madeModels(), second = madeModels();
    for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(first[i].soup.points, second[i].soup.points);
        EXPECT_EQ(first[i].soup.triangles, second[i].soup.triangles);
    }
}
