// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/support/MeshBuilders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

using Words = std::vector<std::string>;

/// freecut with something at its standard input, and scratch files in a folder of its own.
class Piped : public FreecutFolder
{
public:
    Piped()
    {
        std::filesystem::create_directories(path("scratch"));
        addStl(box(4, 4, 12), "box.stl");
    }

    Result pipe(std::string const& input, Words const& arguments) const
    {
        QProcess process;
        start(process, arguments);
        process.write(input.data(), qint64(input.size()));
        process.closeWriteChannel();
        process.waitForFinished(-1);
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }

    void start(QProcess& process, Words const& arguments) const
    {
        prepare(process, arguments);
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TMPDIR", QString::fromStdString(path("scratch")));
        process.setProcessEnvironment(environment);
        process.start();
        process.waitForStarted(-1);
    }
};

}  // namespace

TEST(FreecutStandardInput, IsReadLikeAFileNamedStdin)
{
    Piped const folder;
    auto const result = folder.pipe(folder.read("box.stl"), {"zcut", "-", "--height", "5"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(folder.files(),
                ElementsAre("box.stl", "scratch", "stdin_cut1.stl", "stdin_cut2.stl"));
    EXPECT_THAT(folder.files("scratch"), IsEmpty());
}

TEST(FreecutStandardInput, IsAPartAmongOthers)
{
    Piped const folder;
    auto const result =
        folder.pipe(folder.read("box.stl"), {"info", "box.stl", "-", "--json", "-"});
    EXPECT_EQ(result.status, 0) << result.errors;
    auto const report = result.json();
    EXPECT_EQ(report["parts"][1]["source"], "-");
    EXPECT_EQ(report["parts"][0]["volume"], report["parts"][1]["volume"]);
}

TEST(FreecutStandardInput, WithoutAPartIsNamedInTheMessage)
{
    Piped const folder;
    for (std::string const input : {"", "no part at all"}) {
        auto const result = folder.pipe(input, {"info", "-"});
        EXPECT_EQ(result.status, 3);
        EXPECT_THAT(result.errors, HasSubstr("File 'standard input': "));
        EXPECT_THAT(result.errors, Not(HasSubstr("scratch")));
    }
    EXPECT_THAT(folder.files("scratch"), IsEmpty());
}

TEST(FreecutStandardInput, WaitingForItCanBeCancelled)
{
    Piped const folder;
    QProcess process;
    folder.start(process, {"info", "-"});
    // The file that takes the input is made before it is waited for.
    while (folder.files("scratch").empty())
        ASSERT_FALSE(process.waitForFinished(5));
    process.waitForFinished(120);
    process.terminate();
    EXPECT_TRUE(process.waitForFinished(60'000));
    process.kill();
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 143);
    EXPECT_THAT(folder.files("scratch"), IsEmpty());
}

TEST(FreecutStandardOutput, TakesTheOnlyPieceAndNothingElse)
{
    Piped const folder;
    auto const result =
        folder.pipe(folder.read("box.stl"), {"convert", "-", "-o", "-", "--format", "ply"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(folder.files(), ElementsAre("box.stl", "scratch"));
    EXPECT_THAT(folder.files("scratch"), IsEmpty());
    ASSERT_EQ(folder.run({"convert", "box.stl", "--format", "ply"}).status, 0);
    EXPECT_TRUE(result.output == folder.read("box.ply"));
}

TEST(FreecutStandardOutput, RefusesSeveralPiecesAndAReportBesideThePiece)
{
    Piped const folder;
    auto const several = folder.run({"zcut", "box.stl", "--height", "5", "-o", "-"});
    EXPECT_EQ(several.status, 2);
    EXPECT_THAT(several.errors, HasSubstr("takes one piece, but there are 2"));
    EXPECT_EQ(several.output, "");
    auto const both = folder.run({"convert", "box.stl", "-o", "-", "--json", "-"});
    EXPECT_EQ(both.status, 2);
    EXPECT_THAT(both.errors, HasSubstr("not both"));
    EXPECT_EQ(both.output, "");
}

TEST(FreecutStandardOutput, ThatIsFullIsAFailure)
{
    Piped const folder;
    QProcess process;
    folder.prepare(process, {"convert", "box.stl", "-o", "-"});
    process.setStandardOutputFile("/dev/full");
    process.start();
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 3);
}
