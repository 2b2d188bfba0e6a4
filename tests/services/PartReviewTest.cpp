// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/memory/RecordSlabs.h"
#include "host/services/PartReview.h"
#include "tests/support/CorpusParts.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// A placement that is a reflection, and neither keeps places nor sizes.
UMatrix4<float> mirrored()
{
    UMatrix4<float> matrix;
    matrix(0, 0) = -2;
    matrix(1, 3) = 30;
    return matrix;
}

void expectSameFacts(MeshFacts const& facts, MeshFacts const& expected)
{
    EXPECT_EQ(facts.triangles, expected.triangles);
    EXPECT_EQ(facts.vertices, expected.vertices);
    EXPECT_EQ(facts.shells, expected.shells);
    EXPECT_EQ(facts.borderEdges, expected.borderEdges);
    EXPECT_EQ(facts.nonManifoldEdges, expected.nonManifoldEdges);
    EXPECT_EQ(facts.inconsistentEdges, expected.inconsistentEdges);
    EXPECT_EQ(facts.closed, expected.closed);
    EXPECT_EQ(facts.box.min, expected.box.min);
    EXPECT_EQ(facts.box.max, expected.box.max);
    EXPECT_NEAR(facts.area, expected.area, 1e-9 * expected.area);
    EXPECT_NEAR(facts.volume, expected.volume, 1e-9 * std::abs(expected.volume));
}

}  // namespace

TEST(PartReview, TellsOfEachPartWhatIsToldOfAKernel)
{
    for (corpus::Part const& part : corpus::parts()) {
        auto kernel = kernelOf(part.soup);
        kernel->getMatrix() = mirrored();
        MeshFacts const facts = measureMesh(*kernel);
        Repair::EvaluateErrors errors(kernel.get());
        errors.evaluate(Repair::EvaluateErrors::ERROR_ALL, false, true, {});
        SCOPED_TRACE(part.name);
        PartReview const review = reviewPart(std::move(kernel), {});
        expectSameFacts(review.facts, facts);
        EXPECT_EQ(review.errors.borderEdges, errors.counts().borderEdges);
        EXPECT_EQ(review.errors.nonManifoldEdges, errors.counts().nonManifoldEdges);
        EXPECT_EQ(review.errors.inconsistentEdges, errors.counts().inconsistentEdges);
        EXPECT_EQ(review.errors.degenerateTriangles, errors.counts().degenerateTriangles);
        EXPECT_EQ(review.errors.duplicateTriangles, errors.counts().duplicateTriangles);
        EXPECT_EQ(review.errors.selfIntersections, errors.counts().selfIntersections);
        EXPECT_EQ(review.errors.misorientedShells, errors.counts().misorientedShells);
    }
}

#if !defined(MELL_ADDRESS_SANITIZER)
TEST(PartReview, RecordsAreGoneWhenErrorsAreLookedFor)
{
    Soup soup = box(10, 10, 10);
    for (int level = 0; level < 7; ++level)
        soup = subdivided(soup);
    auto kernel = kernelOf(soup);
    std::size_t const triangles = kernel->readMesh()->triangles.size();
    std::size_t const before = RecordSlabs::footprint<UTriangle<float>>().inUse;
    std::size_t least = before;
    reviewPart(std::move(kernel), [&](int percent) {
        auto const held = RecordSlabs::footprint<UTriangle<float>>();
        if (percent > 10)
            least = std::min(least, held.inUse + held.kept);
    });
    EXPECT_LT(least + triangles * sizeof(UTriangle<float>) / 2, before);
}
#endif
