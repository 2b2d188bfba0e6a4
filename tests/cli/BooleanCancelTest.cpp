// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/AllOrNothing.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

namespace {

void expectAllOrNothing(Soup const& a, Soup const& b, std::string const& operation)
{
    SCOPED_TRACE(operation);
    FreecutFolder folder;
    folder.addStl(a, "a.stl");
    folder.addStl(b, "b.stl");
    expectAllOrNothing(folder,
                       {"boolean", "a.stl", "b.stl", operation, "--allow-open", "-o", "pieces"});
}

Soup besideItself(Soup soup, float distance)
{
    for (auto& p : soup.points)
        p += UVector3<float>(0.6f * distance, 0.5f * distance, 0.62f * distance);
    return soup;
}

}  // namespace

TEST(FreecutCancel, ABooleanOfNearCopiesLeavesAllPiecesOrNone)
{
    Soup const ball = sphere(50, 120, 160);
    expectAllOrNothing(ball, besideItself(ball, 1e-3f), "--subtract");
    expectAllOrNothing(ball, besideItself(ball, 1), "--split");
}

/// Such operands are held against their results in the end.
TEST(FreecutCancel, ABooleanOfCrossingOperandsLeavesAllPiecesOrNone)
{
    Soup balls = sphere(50, 120, 160);
    balls.append(besideItself(sphere(40, 100, 120), 20));
    expectAllOrNothing(balls, besideItself(balls, 5), "--union");
}
