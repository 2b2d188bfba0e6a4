// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/jobs/JobGuard.h"
#include "platform/jobs/EventNotify.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <thread>
#include <vector>

namespace {

/// What the guard tells while this lives.
class Listener : public QObject
{
public:
    Listener()
    {
        QCoreApplication::processEvents();
        connect(JobGuard::instance(), &JobGuard::busyChanged, this,
                [this](bool busy) { told.push_back(busy); });
    }
    std::vector<bool> told;
};

JobGuard& guard()
{
    return *JobGuard::instance();
}

}  // namespace

TEST(JobGuard, IsBusyFromTheStartEventToTheEndEvent)
{
    Listener const listener;
    EXPECT_FALSE(guard().isBusy());
    EventNotify::instance()->emitStartEvent();
    EXPECT_TRUE(guard().isBusy());
    EXPECT_FALSE(guard().reason().isEmpty());
    EventNotify::instance()->emitEndEvent();
    EXPECT_FALSE(guard().isBusy());
    EXPECT_TRUE(guard().reason().isEmpty());
    EXPECT_EQ(listener.told, (std::vector{true, false}));
}

TEST(JobGuard, AnEndWithoutAStartDoesNotSpoilTheNextJob)
{
    EventNotify::instance()->emitEndEvent();
    EventNotify::instance()->emitStartEvent();
    EXPECT_TRUE(guard().isBusy());
    EventNotify::instance()->emitEndEvent();
    EXPECT_FALSE(guard().isBusy());
}

TEST(JobGuard, StaysBusyUntilBothEventAndDisplayHaveEnded)
{
    Listener const listener;
    EventNotify::instance()->emitStartEvent();
    guard().displayOpened("Section Cut");
    EventNotify::instance()->emitEndEvent();
    EXPECT_TRUE(guard().isBusy());
    EXPECT_TRUE(guard().reason().contains("Section Cut"));
    guard().displayClosed();
    EXPECT_FALSE(guard().isBusy());
    QCoreApplication::processEvents();
    EXPECT_EQ(listener.told, (std::vector{true, false}));
}

TEST(JobGuard, ADisplayOfAnotherThreadCountsAtOnceAndIsToldOnThisOne)
{
    Listener const listener;
    std::thread([] { guard().displayOpened("Repair"); }).join();
    EXPECT_TRUE(guard().isBusy());
    EXPECT_TRUE(listener.told.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(listener.told, std::vector{true});
    std::thread([] { guard().displayClosed(); }).join();
    EXPECT_FALSE(guard().isBusy());
    QCoreApplication::processEvents();
    EXPECT_EQ(listener.told, (std::vector{true, false}));
}

TEST(JobGuard, AHoldKeepsItBusyBetweenDisplays)
{
    Listener const listener;
    {
        JobGuard::Hold const hold;
        EXPECT_TRUE(guard().isBusy());
        guard().displayOpened("Section Cut");
        guard().displayClosed();
        EXPECT_TRUE(guard().isBusy());
        QCoreApplication::processEvents();
        EXPECT_EQ(listener.told, std::vector{true});
    }
    EXPECT_FALSE(guard().isBusy());
    QCoreApplication::processEvents();
    EXPECT_EQ(listener.told, (std::vector{true, false}));
}
