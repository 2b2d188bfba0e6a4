// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QStandardPaths>

#include <sstream>

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

using Names = std::vector<std::string>;

bool isInstalled(char const* program)
{
    return !QStandardPaths::findExecutable(program).isEmpty();
}

/// A folder with freecut's completions for a shell.
class CompletionFolder : public FreecutFolder
{
public:
    explicit CompletionFolder(std::string shell) : m_shell(std::move(shell))
    {
        auto const result = run({"completion", m_shell});
        EXPECT_EQ(result.status, 0) << result.errors;
        addFile("completion", result.output);
    }

    /// What the shell prints for a script, line by line.
    Names lines(std::string const& script) const
    {
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(path(".")));
        process.start(QString::fromStdString(m_shell), {"-c", QString::fromStdString(script)});
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        std::istringstream text(process.readAllStandardOutput().toStdString());
        Names names;
        for (std::string line; std::getline(text, line);)
            names.push_back(line);
        return names;
    }

private:
    std::string m_shell;
};

/// What bash offers for the last of some words.
Names bashOffers(CompletionFolder const& folder, Names const& words)
{
    std::string line;
    for (std::string const& word : words)
        line += " '" + word + '\'';
    // Outside of a completion there are no options of one to set.
    return folder.lines("compopt() { :; }; source completion; COMP_WORDS=(" + line +
                        "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _freecut; "
                        "printf '%s\\n' \"${COMPREPLY[@]}\"");
}

}  // namespace

TEST(FreecutCompletion, OfBashKnowsCommandsOptionsValuesAndFiles)
{
    CompletionFolder folder("bash");
    folder.addFile("a part.stl", "");
    EXPECT_THAT(bashOffers(folder, {"freecut", "z"}), ElementsAre("zcut"));
    EXPECT_THAT(bashOffers(folder, {"freecut", ""}),
                AllOf(Contains("info"), Contains("convert"), Contains("--version")));
    EXPECT_THAT(bashOffers(folder, {"freecut", "zcut", "--he"}),
                ElementsAre("--help", "--height", "--heights"));
    EXPECT_THAT(bashOffers(folder, {"freecut", "section", "--notch"}),
                ElementsAre("--notch-depth", "--notch-clearance"));
    EXPECT_THAT(bashOffers(folder, {"freecut", "zcut", "x.stl", "--format", "p"}),
                ElementsAre("ply", "ply-ascii"));
    EXPECT_THAT(bashOffers(folder, {"freecut", "zcut", "--height", ""}), ElementsAre(""));
    EXPECT_THAT(bashOffers(folder, {"freecut", "zcut", "a"}), ElementsAre("a part.stl"));
    EXPECT_THAT(bashOffers(folder, {"freecut", "completion", ""}),
                ElementsAre("bash", "zsh", "fish"));
    // Nothing that is no option of this command.
    EXPECT_THAT(bashOffers(folder, {"freecut", "info", "--"}), Each(Not(HasSubstr("height"))));
}

TEST(FreecutCompletion, OfFishSaysWhatOptionsDo)
{
    if (!isInstalled("fish"))
        GTEST_SKIP() << "fish is not installed";
    CompletionFolder const folder("fish");
    auto const offers = [&](std::string const& line) {
        return folder.lines("source completion; complete -C '" + line + "'");
    };
    EXPECT_THAT(offers("freecut z"),
                ElementsAre(StartsWith("zcut\tCut parts by a horizontal plane")));
    EXPECT_THAT(offers("freecut zcut --heigh"),
                ElementsAre("--height\tCut all parts at this height", StartsWith("--heights\t")));
    EXPECT_THAT(offers("freecut zcut --format p"),
                ElementsAre(StartsWith("ply"), StartsWith("ply-ascii")));
    EXPECT_THAT(offers("freecut info --heigh"), ElementsAre());
}

TEST(FreecutCompletion, OfZshIsReadWithoutAComplaint)
{
    if (!isInstalled("zsh"))
        GTEST_SKIP() << "zsh is not installed";
    CompletionFolder const folder("zsh");
    // The function exists, and its lists are whole: _arguments and _describe show what they are given.
    Names const shown = folder.lines(
        "_describe() { print -l $commands; }; _files() { :; }; _arguments() { print -rl -- \"$@\"; "
        "}; "
        "source ./completion; words=(freecut); CURRENT=2; _freecut; words=(freecut zcut -); "
        "CURRENT=3; _freecut");
    EXPECT_THAT(shown, Contains(StartsWith("zcut:Cut parts by a horizontal plane")));
    EXPECT_THAT(shown, Contains("*--height[Cut all parts at this height]:H: "));
    EXPECT_THAT(shown,
                Contains(AllOf(StartsWith("*--format["), HasSubstr(":NAME:(stl stl-ascii ply"))));
    EXPECT_THAT(shown, Contains("*:file:_files"));
    EXPECT_THAT(shown, Each(Not(StartsWith("*--notch"))));
}

TEST(FreecutManual, NamesEveryCommandAndOptionThatTheHelpNames)
{
    FreecutFolder const folder;
    auto const manual = folder.run({"manual"});
    ASSERT_EQ(manual.status, 0) << manual.errors;
    EXPECT_THAT(manual.output, StartsWith(".TH FREECUT 1"));
    for (std::string const command : {"info", "zcut", "section", "boolean", "polygon", "cylinder",
                                      "cuboid", "repair", "convert", "completion"}) {
        EXPECT_THAT(manual.output, HasSubstr(".SS " + command + "\n"));
        std::istringstream help(folder.run({command, "--help"}).output);
        for (std::string word; help >> word;) {
            if (!word.starts_with("--") || word.size() < 4)
                continue;
            std::string option;
            for (char const c :
                 word.substr(0, word.find_first_not_of("abcdefghijklmnopqrstuvwxyz-")))
                option += c == '-' ? std::string("\\-") : std::string(1, c);
            EXPECT_THAT(manual.output, HasSubstr(option)) << command;
        }
    }
}

TEST(FreecutManual, IsFormattedWithoutAWarning)
{
    if (!isInstalled("groff"))
        GTEST_SKIP() << "groff is not installed";
    FreecutFolder folder;
    folder.addFile("freecut.1", folder.run({"manual"}).output);
    QProcess process;
    process.start(
        "groff", {"-man", "-ww", "-z", "-Tutf8", QString::fromStdString(folder.path("freecut.1"))});
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.readAllStandardError().toStdString(), "");
    EXPECT_EQ(process.exitCode(), 0);
}
