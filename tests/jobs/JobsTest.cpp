// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/EventNotify.h"
#include "platform/jobs/Exceptions.h"
#include "platform/jobs/ProgressSink.h"
#include "platform/jobs/SecondaryThread.h"
#include "platform/jobs/SequencerLauncher.h"

#include <gtest/gtest.h>

#include <QObject>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

class RecordingSink : public Base::ProgressSink
{
public:
    void begin(std::string const& title, std::uint64_t range) override
    {
        log.push_back("begin " + title + " " + std::to_string(range));
    }
    void progress(std::uint64_t value) override { log.push_back(std::to_string(value)); }
    void setCancelEnabled(bool enabled) override { log.push_back(enabled ? "can" : "cannot"); }
    void end() override { log.push_back("end"); }
    bool isCancelRequested() const override { return cancel; }

    std::vector<std::string> log;
    std::atomic<bool> cancel = false;
};

class Sequencer : public testing::Test
{
protected:
    Sequencer() { Base::setProgressSink(sink); }
    ~Sequencer() override { Base::setProgressSink(nullptr); }

    std::shared_ptr<RecordingSink> const sink = std::make_shared<RecordingSink>();
};

}  // namespace

TEST_F(Sequencer, DisplayIsOpenFromConstructionToDestruction)
{
    {
        Base::SequencerLauncher launcher("Cutting...", 100, true);
        launcher.setCancelEnabled(true);
        launcher.setProgress(40);
        launcher.setProgress(140);
    }
    EXPECT_EQ(sink->log,
              (std::vector<std::string>{"begin Cutting... 100", "can", "40", "140", "end"}));
}

TEST_F(Sequencer, CancelThrowsTheUsersAbort)
{
    Base::SequencerLauncher launcher("Cutting...", 100, true);
    launcher.setCancelEnabled(true);
    launcher.setProgress(1);
    sink->cancel = true;
    try {
        launcher.setProgress(2);
        FAIL() << "no exception";
    } catch (Mell::AbortException const& abort) {
        EXPECT_STREQ(abort.what(), "Aborting...");
    }
}

TEST_F(Sequencer, CancelIsNotHeededUnlessItIsOffered)
{
    Base::SequencerLauncher launcher("Cutting...", 100, true);
    sink->cancel = true;
    EXPECT_NO_THROW(launcher.setProgress(1));
    launcher.setCancelEnabled(true);
    EXPECT_THROW(launcher.setProgress(2), Mell::AbortException);
    launcher.setCancelEnabled(false);
    EXPECT_NO_THROW(launcher.setProgress(3));
}

TEST_F(Sequencer, OpenLauncherKeepsItsSink)
{
    Base::SequencerLauncher launcher("Cutting...", 100, true);
    Base::setProgressSink(nullptr);
    launcher.setProgress(7);
    EXPECT_EQ(sink->log.back(), "7");
}

TEST_F(Sequencer, WorksOnAnyThread)
{
    std::thread([] { Base::SequencerLauncher("Cutting...", 10, false).setProgress(10); }).join();
    EXPECT_EQ(sink->log, (std::vector<std::string>{"begin Cutting... 10", "10", "end"}));
}

TEST(SequencerWithoutASink, AcceptsProgress)
{
    Base::SequencerLauncher launcher("Cutting...", 100, true);
    launcher.setCancelEnabled(true);
    EXPECT_NO_THROW(launcher.setProgress(50));
    EXPECT_EQ(Base::progressSink(), nullptr);
}

TEST(SecondaryThread, HasFinishedOnAThreadOfItsOwnWhenItIsMade)
{
    std::thread::id there;
    SecondaryThread const thread([&] { there = std::this_thread::get_id(); });
    EXPECT_NE(there, std::thread::id());
    EXPECT_NE(there, std::this_thread::get_id());
}

TEST(SecondaryThread, PassesExceptionsOn)
{
    try {
        SecondaryThread const thread([] { throw Mell::AbortException("Aborting..."); });
        FAIL() << "no exception";
    } catch (Mell::AbortException const& abort) {
        EXPECT_STREQ(abort.what(), "Aborting...");
    }
    EXPECT_THROW(SecondaryThread([] { throw std::runtime_error("broken"); }), std::runtime_error);
}

TEST(Console, PassesLinesToItsListenerFromAnyThread)
{
    std::vector<std::string> lines;
    auto& console = Base::ConsoleSingleton::Instance();
    console.Log("nobody hears this");
    console.setListener([&](std::string const& line) {
        lines.push_back(line);
        if (line == "first")
            console.Log("from the listener");
    });
    console.Log("first");
    std::thread([&] { console.Log(std::string("second")); }).join();
    console.setListener({});
    console.Log("nobody hears this either");
    EXPECT_EQ(lines, (std::vector<std::string>{"first", "from the listener", "second"}));
}

TEST(EventNotify, TellsStartAndEnd)
{
    std::string told;
    QObject context;
    QObject::connect(EventNotify::instance(), &EventNotify::startEvent, &context,
                     [&] { told += 's'; });
    QObject::connect(EventNotify::instance(), &EventNotify::endEvent, &context,
                     [&] { told += 'e'; });
    EventNotify::instance()->emitStartEvent();
    EventNotify::instance()->emitEndEvent();
    EXPECT_EQ(told, "se");
}
