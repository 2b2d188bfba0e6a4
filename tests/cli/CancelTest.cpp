// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"
#include "tests/cli/TestTerminal.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Places.h"
#include "tests/support/Validator.h"

#include <gtest/gtest.h>

#include <QThread>

#include <signal.h>
#include <unistd.h>

namespace {

using Names = std::vector<std::string>;

/// A command that takes a while.
Names longCommand(FreecutFolder& folder)
{
    folder.addStl(sphere(50, 300, 400), "ball.stl");
    Names arguments = {"zcut", "--height", "1.234", "-o", "pieces"};
    for (int i = 0; i < 12; ++i)
        arguments.push_back("ball.stl");
    return arguments;
}

}  // namespace

TEST(FreecutCancel, CtrlCEndsWith130AndLeavesNoFile)
{
    FreecutFolder folder;
    Names const arguments = longCommand(folder);
    QProcess process;
    folder.prepare(process, arguments);
    process.start();
    ASSERT_TRUE(waitUntilInterruptible(process));
    sendSignal(process, SIGINT);
    process.waitForFinished(-1);
    ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 130);
    EXPECT_EQ(folder.files(), Names{"ball.stl"});
    EXPECT_NE(process.readAllStandardError().toStdString().find("Cancelled"), std::string::npos);
}

TEST(FreecutCancel, EverySignalThatAsksToStopLeavesNoFile)
{
    for (int const signalNumber : {SIGINT, SIGTERM, SIGHUP}) {
        FreecutFolder folder;
        Names const arguments = longCommand(folder);
        QProcess process;
        folder.prepare(process, arguments);
        process.start();
        ASSERT_TRUE(waitUntilInterruptible(process));
        sendSignal(process, signalNumber);
        process.waitForFinished(-1);
        ASSERT_EQ(process.exitStatus(), QProcess::NormalExit) << signalNumber;
        EXPECT_EQ(process.exitCode(), 128 + signalNumber);
        EXPECT_EQ(folder.files(), Names{"ball.stl"});
    }
}

TEST(FreecutCancel, WithNohupItOutlivesItsTerminal)
{
    FreecutFolder folder;
    folder.addStl(sphere(50, 300, 400), "ball.stl");
    QProcess process;
    folder.prepare(process, {});
    process.setProgram("nohup");
    process.setArguments(
        {QString::fromStdString(builtPath("freecut")), "zcut", "--height", "1.234", "ball.stl"});
    process.start();
    ASSERT_TRUE(waitUntilInterruptible(process));
    sendSignal(process, SIGHUP);
    process.waitForFinished(-1);
    ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
}

TEST(FreecutCancel, AtAnyMomentThereAreAllPiecesOrNone)
{
    FreecutFolder folder;
    Names const arguments = longCommand(folder);
    for (unsigned long const delayMs : {0ul, 100ul, 200ul, 400ul, 600ul, 800ul, 1200ul}) {
        QProcess process;
        folder.prepare(process, arguments);
        process.start();
        waitUntilInterruptible(process);
        QThread::msleep(delayMs);
        sendSignal(process, SIGINT);
        process.waitForFinished(-1);
        ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
        Names const left = folder.files().size() == 1 ? Names() : folder.files("pieces");
        if (process.exitCode() == 0) {
            EXPECT_EQ(left.size(), 24u);
            break;
        }
        EXPECT_EQ(process.exitCode(), 130) << delayMs;
        EXPECT_TRUE(left.empty()) << delayMs << testing::PrintToString(left);
    }
}

TEST(FreecutCancel, OnATerminalALineShowsThePercentage)
{
    FreecutFolder folder;
    QProcess process;
    folder.prepare(process, longCommand(folder));
    std::string const shown = shownOnTerminal(process);
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_NE(shown.find(" %  "), std::string::npos) << shown;
    EXPECT_NE(shown.find('\r'), std::string::npos);
}
