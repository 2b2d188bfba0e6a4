// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/LogConsole.h"
#include "app/panels/LogRecorder.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "tests/app/PartDocument.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QRegularExpression>

#include <thread>

namespace {

void log(std::string const& text)
{
    Base::ConsoleSingleton::Instance().Log(text);
}

}  // namespace

TEST(LogConsole, ShowsEarlierAndLaterLinesWithTheirTime)
{
    LogRecorder recorder;
    log("before");
    handleEvents();
    LogConsole console(recorder);
    log("after \u00b5");
    handleEvents();
    QRegularExpression const expected(
        "^\\d\\d:\\d\\d:\\d\\d\\.\\d{3} before\n\\d\\d:\\d\\d:\\d\\d\\.\\d{3} after \u00b5$");
    EXPECT_TRUE(expected.match(console.toPlainText()).hasMatch())
        << console.toPlainText().toStdString();
    EXPECT_TRUE(console.isReadOnly());
}

TEST(LogConsole, LinesOfManyThreadsAllCome)
{
    LogRecorder recorder;
    LogConsole console(recorder);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([t] {
            for (int i = 0; i < 200; ++i)
                log("line " + std::to_string(t) + " " + std::to_string(i));
        });
    for (std::thread& thread : threads)
        thread.join();
    handleEvents();
    EXPECT_EQ(console.blockCount(), 800);
    for (int t = 0; t < 4; ++t)
        EXPECT_TRUE(console.toPlainText().contains(QString("line %1 199").arg(t)));
}

TEST(LogConsole, TheOldestLinesGoFirst)
{
    LogRecorder recorder;
    LogConsole console(recorder);
    for (int i = 0; i < LogRecorder::capacity + 5; ++i) {
        log("line " + std::to_string(i) + ".");
        if (i % 3000 == 0)
            handleEvents();
    }
    handleEvents();
    EXPECT_EQ(recorder.lines().size(), LogRecorder::capacity);
    EXPECT_TRUE(recorder.lines().first().endsWith(" line 5."));
    EXPECT_EQ(console.blockCount(), LogRecorder::capacity);
}

TEST(LogConsole, LinesCanBeCopied)
{
    LogRecorder recorder;
    LogConsole console(recorder);
    log("copy me");
    handleEvents();
    console.selectAll();
    console.copy();
    EXPECT_TRUE(QApplication::clipboard()->text().endsWith("copy me"));
}

TEST(LogConsole, AfterTheRecorderTheConsoleIsSilent)
{
    {
        LogRecorder const recorder;
        log("one");
    }
    log("two");
    handleEvents();
}
