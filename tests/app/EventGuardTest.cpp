// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/EventGuard.h"
#include "app/window/NoticeBar.h"
#include "platform/jobs/Exceptions.h"

#include <gtest/gtest.h>

#include <new>

namespace {

struct EventGuardTest : testing::Test
{
    EventGuardTest()
    {
        QObject::connect(&guard, &EventGuard::failed,
                         [this](QString const& text) { told << text; });
    }

    QStringList toldAfter(std::function<bool()> const& deliver)
    {
        told.clear();
        EXPECT_NO_THROW(EXPECT_TRUE(guard.run(deliver)));
        EXPECT_TRUE(told.isEmpty()) << "before the event was over";
        QCoreApplication::sendPostedEvents(&guard);
        return told;
    }

    EventGuard guard;
    QStringList told;
};

}  // namespace

TEST_F(EventGuardTest, TellsWhateverAnEventsHandlerThrows)
{
    EXPECT_EQ(toldAfter([]() -> bool { throw std::bad_alloc(); }),
              QStringList{"There is not enough free memory; close other programs and try again."});
    EXPECT_EQ(toldAfter([]() -> bool { throw Mell::Exception("Open a part first."); }),
              QStringList{"Open a part first."});
    EXPECT_EQ(toldAfter([]() -> bool { throw 7; }), QStringList{"This could not be done."});
}

TEST_F(EventGuardTest, TellsNothingOfACancel)
{
    EXPECT_EQ(toldAfter([]() -> bool { throw Mell::AbortException("Aborting..."); }),
              QStringList());
}

TEST_F(EventGuardTest, PassesOnWhatTheHandlerReturns)
{
    EXPECT_TRUE(guard.run([] { return true; }));
    EXPECT_FALSE(guard.run([] { return false; }));
}

TEST(NoticeBar, ShowsAMessageThatComesAgainOnce)
{
    NoticeBar bar;
    for (char const* const message : {"No memory.", "Not saved.", "No memory."})
        bar.add(message);
    EXPECT_EQ(bar.text(), "No memory.\nNot saved.");
}
