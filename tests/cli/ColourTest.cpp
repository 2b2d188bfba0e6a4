// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/cli/TestTerminal.h"
#include "tests/support/MeshBuilders.h"

#include <gtest/gtest.h>

namespace {

/// What a command shows on a terminal in an environment with some more variables.
std::string shown(std::vector<std::string> const& arguments, QStringList const& variables)
{
    FreecutFolder folder;
    folder.addStl(box(10, 10, 10), "block.stl");
    QProcess process;
    folder.prepare(process, arguments);
    process.setEnvironment(process.environment() + variables);
    return shownOnTerminal(process);
}

std::vector<std::string> const wrong{"info", "missing.stl"};
std::vector<std::string> const missing{"zcut", "block.stl", "--height", "30", "-o", "pieces"};

}  // namespace

TEST(FreecutColours, OnATerminalErrorsBeginRedAndRemarksYellow)
{
    QStringList const terminal{"TERM=xterm", "NO_COLOR="};
    EXPECT_NE(shown(wrong, terminal).find("\033[31mfreecut:\033[0m "), std::string::npos);
    EXPECT_NE(shown(missing, terminal).find("\033[33mfreecut:\033[0m "), std::string::npos);
}

TEST(FreecutColours, AreLeftOutWhereNobodyWantsThem)
{
    for (QStringList const& variables :
         {QStringList{"TERM=xterm", "NO_COLOR=1"}, QStringList{"TERM=dumb", "NO_COLOR="}})
        for (auto const& arguments : {wrong, missing}) {
            std::string const text = shown(arguments, variables);
            EXPECT_NE(text.find("freecut: "), std::string::npos) << text;
            EXPECT_EQ(text.find("\033[3"), std::string::npos) << text;
        }
}
