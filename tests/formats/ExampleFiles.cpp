// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PartFiles.h"
#include "platform/services/Repair.h"
#include "tests/support/Places.h"
#include "tests/support/Soup.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(ExampleFiles, AreClosedSolidsOfTheSizeOfAHand)
{
    std::filesystem::path const folder = sourcePath("examples");
    struct Expected
    {
        char const* file;
        long eulerNumber;
    };
    // A solid with n tunnels through it has the Euler number 2 - 2n.
    for (auto const& [file, eulerNumber] :
         {Expected{"vase.stl", 2}, Expected{"bracket.3mf", -2}, Expected{"elbow.obj", 0}}) {
        SCOPED_TRACE(file);
        auto const parts = Formats::readParts(folder / file);
        ASSERT_EQ(parts.size(), 1u);
        Soup const soup = soupOf(*parts[0].kernel);
        EXPECT_EQ(closedSolidFaults(soup), "");
        EXPECT_GT(volumeOf(soup), 0);
        EXPECT_EQ(componentsOf(soup), 1u);
        EXPECT_EQ(eulerNumberOf(soup), eulerNumber);
        EXPECT_EQ(Repair::EvaluateErrors(parts[0].kernel.get())
                      .evaluate(Repair::EvaluateErrors::ERROR_ALL, true, true, {}),
                  0u);
        UBox3<float> const& box = parts[0].kernel->GetBox();
        EXPECT_FLOAT_EQ(box.MinZ(), 0);
        float const longest =
            std::max({box.MaxX() - box.MinX(), box.MaxY() - box.MinY(), box.MaxZ()});
        EXPECT_GE(longest, 40);
        EXPECT_LE(longest, 100);
    }
}
