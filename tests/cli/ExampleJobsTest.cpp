// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PartFiles.h"
#include "platform/services/Intersect.h"
#include "tests/app/PieceGap.h"
#include "tests/cli/FreecutProcess.h"
#include "tests/support/Places.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

namespace {

/// A job of the examples, run in a folder of its own.
struct ExampleJob
{
    ExampleJob(std::string const& job, UVector3<float> const& normal, float gap)
    {
        qputenv("FREECUT", QByteArray::fromStdString(builtPath("freecut")));
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(folder.path(".")));
        process.start(QString::fromStdString(sourcePath("examples/" + job)),
                      {"pieces", "--json", "-"});
        process.waitForFinished(-1);
        qunsetenv("FREECUT");
        errors = process.readAllStandardError().toStdString();
        if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
            throw std::runtime_error(job + " failed: " + errors);
        report = nlohmann::json::parse(process.readAllStandardOutput().toStdString())["parts"][0];
        lower = pieceOf(0);
        upper = pieceOf(1);
        // The faces are put together.
        for (auto& p : upper.points)
            p -= normal * gap;
    }

    Soup pieceOf(std::size_t index) const
    {
        return folder.mesh(report["pieces"].at(index)["file"].get<std::string>());
    }
    double partVolume() const { return report["volume"]; }

    FreecutFolder folder;
    std::string errors;
    nlohmann::json report;
    Soup lower;
    Soup upper;
};

double volumeOfBoth(Soup const& a, Soup const& b, Intersect::BooleanType type)
{
    MeshKernel result;
    std::vector<MeshKernel*> out{&result};
    Intersect::boolean(kernelOf(a).get(), kernelOf(b).get(), out, type, {}, 1);
    return volumeOf(soupOf(result));
}

void expectFit(ExampleJob const& job)
{
    EXPECT_EQ(job.errors, "");
    ASSERT_EQ(job.report["pieces"].size(), 2u);
    for (Soup const* const piece : {&job.lower, &job.upper}) {
        EXPECT_EQ(closedSolidFaults(*piece), "");
        EXPECT_EQ(componentsOf(*piece), 1u);
    }
    EXPECT_LE(volumeOfBoth(job.lower, job.upper, Intersect::BOOLEAN_INTERSECT),
              1e-6 * job.partVolume());
}

float topOf(Soup const& soup)
{
    float top = soup.points.front().Z();
    for (auto const& p : soup.points)
        top = std::max(top, p.Z());
    return top;
}

}  // namespace

TEST(ExampleJobs, PiecesOfTheBracketFitByTheirPins)
{
    ExampleJob const job("join-by-pins", {0, 0, 1}, 0.05f);
    expectFit(job);
    auto const pins = double(job.report["positions"].size());
    EXPECT_EQ(pins, 4);
    EXPECT_NEAR(topOf(job.lower), 22, 1e-4f);
    // Each pin is round and 6 mm high, each hole wider and deeper by its clearances.
    double const bored = pins * (1.6 * 1.6 * 6.3 - 1.5 * 1.5 * 6) * 3.14;
    double const gap = (240 - pins * 1.6 * 1.6 * 3.14) * 0.05;
    EXPECT_NEAR(volumeOf(job.lower) + volumeOf(job.upper) + bored + gap, job.partVolume(), 0.3);
}

TEST(ExampleJobs, TheBracketsFootSlidesIntoItsDovetails)
{
    ExampleJob const job("join-by-dovetails", {0, 0, 0}, 0);
    expectFit(job);
    Soup const whole = soupOf(*Formats::readParts(sourcePath("examples/bracket.3mf")).at(0).kernel);
    PieceGap const gap(whole, job.lower, job.upper);
    EXPECT_GE(gap.wallPoints, 24u);
    EXPECT_NEAR(gap.least, 0.15, 0.003);
    EXPECT_NEAR(gap.median, 0.15, 0.003);
    // The wall is 30 mm less three feet of 4 mm, and goes around three teeth instead.
    double const length = 30 - 3 * 4 + 3 * (6 + 2 * std::sqrt(17.0));
    EXPECT_NEAR(gap.wallArea, length * 8, 0.1);
    // What the gap takes away is missing, and nothing else.
    EXPECT_NEAR(job.partVolume() - volumeOf(job.lower) - volumeOf(job.upper), gap.wallArea * 0.15,
                2);
}

TEST(ExampleJobs, HalvesOfTheElbowAreDrilledAlike)
{
    ExampleJob const job("join-by-holes", {0, 0, 0}, 0);
    expectFit(job);
    auto const holes = double(job.report["positions"].size());
    EXPECT_GE(holes, 4);
    EXPECT_NEAR(volumeOf(job.lower), volumeOf(job.upper), 1e-4 * job.partVolume());
    double const bored = 2 * holes * 1.1 * 1.1 * 6.25 * 3.14;
    EXPECT_NEAR(volumeOf(job.lower) + volumeOf(job.upper) + bored, job.partVolume(), 0.02 * bored);
}

TEST(ExampleJobs, HalvesOfTheVaseFitByTheirRim)
{
    ExampleJob const job("join-by-lap-joint", {0, 0, 1}, 0.1f);
    expectFit(job);
    EXPECT_NEAR(topOf(job.lower), 36, 1e-4f);
    // The wall is 3 mm thick; the groove is 1.8 mm wide and 4.3 mm deep, the rim 1.4 mm and 4 mm.
    double const area = job.report["section"]["area"];
    double const length = area / 3;
    double const lost = length * (1.8 * 4.3 - 1.4 * 4) + 0.1 * (area - 1.8 * length);
    EXPECT_NEAR(volumeOf(job.lower) + volumeOf(job.upper) + lost, job.partVolume(), 0.1 * lost);
}
