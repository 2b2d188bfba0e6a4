// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/cli/Rings.h"
#include "tests/support/MadeModels.h"
#include "tests/support/SkipReasons.h"

#include <gtest/gtest.h>

namespace {

/// What admesh, a program by other people, says of a mesh file; empty where it is not installed.
std::string admeshReport(std::string const& path)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start("admesh", {QString::fromStdString(path)});
    if (!process.waitForStarted())
        return {};
    process.waitForFinished(-1);
    return process.readAll().toStdString();
}

void expectNothingToMend(std::string const& path, std::string const& name)
{
    SCOPED_TRACE(name);
    std::string const report = admeshReport(path);
    for (char const* const line : {"Degenerate facets     :     0", "Backwards edges       :     0",
                                   "Facets reversed       :     0", "Facets removed        :     0",
                                   "Facets added          :     0"})
        EXPECT_NE(report.find(line), std::string::npos) << line << "\n" << report;
    EXPECT_NE(report.find("All facets connected."), std::string::npos) << report;
}

}  // namespace

TEST(IndependentJudge, FindsNothingToMendInThePiecesOfAllClosedShapes)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 1), "probe.stl");
    if (admeshReport(folder.path("probe.stl")).empty())
        GTEST_SKIP() << admeshIsMissing;
    for (auto const& [name, soup] : closedMeshes()) {
        UBox3<float> bounds;
        for (auto const& p : soup.points)
            bounds.Add(p);
        float const height = bounds.MinZ() + 0.441f * (bounds.MaxZ() - bounds.MinZ());
        folder.addStl(soup, "part.stl");
        auto const result = folder.run({"zcut", "part.stl", "--no-repair", "--force", "--height",
                                        QString::number(double(height), 'g', 9).toStdString()});
        ASSERT_EQ(result.status, 0) << result.errors;
        expectNothingToMend(folder.path("part_cut1.stl"), name);
        expectNothingToMend(folder.path("part_cut2.stl"), name);
    }
}

TEST(IndependentJudge, FindsNothingToMendInWhatIsCutWhileItIsRead)
{
    FreecutFolder folder;
    folder.addStl(ring(), "small.stl");
    if (admeshReport(folder.path("small.stl")).empty())
        GTEST_SKIP() << admeshIsMissing;
    folder.addStl(torus(20, 7, fineness(900), 300), "middle.stl");
    std::vector<std::vector<std::string>> const cuts{
        {"zcut", "--height", "1.234"},
        {"zcut", "--every", "3.3"},
        {"section", "--center", "3,0,1", "--normal", "0.3,0.2,1"}};
    for (std::string const part : {"small.stl", "middle.stl"})
        for (auto cut : cuts) {
            cut.insert(cut.end(), {part, "--stream", "--force", "-o", "pieces"});
            auto const result = folder.run(cut);
            ASSERT_EQ(result.status, 0) << result.errors;
            auto const pieces = folder.files("pieces");
            EXPECT_GE(pieces.size(), 2u);
            for (std::string const& piece : pieces)
                expectNothingToMend(folder.path("pieces/" + piece), piece);
        }
}

TEST(IndependentJudge, FindsNothingToMendInThePiecesOfModels)
{
    FreecutFolder folder;
    folder.addStl(box(1, 1, 1), "probe.stl");
    if (admeshReport(folder.path("probe.stl")).empty())
        GTEST_SKIP() << admeshIsMissing;
    auto const models = closedModels(70000);
    for (auto const& [name, soup] : models) {
        folder.addStl(soup, "part.stl");
        auto const result =
            folder.run({"zcut", "part.stl", "--no-repair", "--force", "--height", "20.5"});
        ASSERT_EQ(result.status, 0) << result.errors;
        expectNothingToMend(folder.path("part_cut1.stl"), name);
        expectNothingToMend(folder.path("part_cut2.stl"), name);
    }
}
