// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/sigslot.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using Policy = sigslot::single_threaded;
using Signal = sigslot::signal0<Policy>;

struct Receiver : sigslot::has_slots<Policy>
{
    void count() { ++calls; }
    void leaveNothing() { calls += 10; }
    void note(std::string text) { last = std::move(text); }
    void leave()
    {
        ++calls;
        signal->disconnect(other);
    }
    void destroy()
    {
        ++calls;
        owned.reset();
    }
    void destroySignal()
    {
        ++calls;
        ownedSignal.reset();
    }
    void join()
    {
        ++calls;
        signal->connect(other, &Receiver::count);
    }

    int calls = 0;
    std::string last;
    Signal* signal = nullptr;
    Receiver* other = nullptr;
    std::unique_ptr<Receiver> owned;
    std::unique_ptr<Signal> ownedSignal;
};

}  // namespace

TEST(Sigslot, EmissionCallsEverySlotOnceHoweverOftenItWasConnected)
{
    Signal signal;
    Receiver first;
    Receiver second;
    signal.connect(&first, &Receiver::count);
    signal.connect(&second, &Receiver::count);
    signal.connect(&second, &Receiver::count);
    signal();
    EXPECT_EQ(first.calls, 1);
    EXPECT_EQ(second.calls, 1);
    signal.disconnect(&second);
    signal();
    EXPECT_EQ(second.calls, 1);
    signal.connect(&second, &Receiver::count);
    signal.connect(&second, &Receiver::leaveNothing);
    signal();
    EXPECT_EQ(second.calls, 12) << "another member is another slot";
}

TEST(Sigslot, ArgumentsArriveAtTheSlot)
{
    sigslot::signal1<std::string, Policy> signal;
    Receiver receiver;
    signal.connect(&receiver, &Receiver::note);
    signal("moved");
    EXPECT_EQ(receiver.last, "moved");
}

TEST(Sigslot, DisconnectEndsOnlyThatReceiversConnections)
{
    Signal signal;
    Receiver first;
    Receiver second;
    signal.connect(&first, &Receiver::count);
    signal.connect(&second, &Receiver::count);
    signal.disconnect(&first);
    signal.disconnect(&first);
    signal();
    EXPECT_EQ(first.calls, 0);
    EXPECT_EQ(second.calls, 1);
}

TEST(Sigslot, ReceiversDestructorEndsItsConnections)
{
    Signal signal;
    {
        Receiver receiver;
        signal.connect(&receiver, &Receiver::count);
        EXPECT_TRUE(signal.isConnected());
    }
    EXPECT_FALSE(signal.isConnected());
    signal();
}

TEST(Sigslot, ReceiverOutlivesTheSignal)
{
    Receiver receiver;
    {
        Signal signal;
        signal.connect(&receiver, &Receiver::count);
        signal();
    }
    EXPECT_EQ(receiver.calls, 1);
}

TEST(Sigslot, SlotDisconnectedDuringEmissionIsNotCalled)
{
    Signal signal;
    Receiver first;
    Receiver second;
    first.signal = &signal;
    first.other = &second;
    signal.connect(&first, &Receiver::leave);
    signal.connect(&second, &Receiver::count);
    signal();
    EXPECT_EQ(first.calls, 1);
    EXPECT_EQ(second.calls, 0);
}

TEST(Sigslot, ReceiverDestroyedDuringEmissionIsNotCalled)
{
    Signal signal;
    Receiver first;
    first.owned = std::make_unique<Receiver>();
    signal.connect(&first, &Receiver::destroy);
    signal.connect(first.owned.get(), &Receiver::count);
    signal();
    signal();
    EXPECT_EQ(first.calls, 2);
}

TEST(Sigslot, SignalMayBeDestroyedByItsSlot)
{
    Receiver receiver;
    receiver.ownedSignal = std::make_unique<Signal>();
    Receiver second;
    receiver.ownedSignal->connect(&receiver, &Receiver::destroySignal);
    receiver.ownedSignal->connect(&second, &Receiver::count);
    (*receiver.ownedSignal)();
    EXPECT_EQ(receiver.calls, 1);
    EXPECT_EQ(second.calls, 0);
}

TEST(Sigslot, SlotConnectedDuringEmissionWaitsForTheNext)
{
    Signal signal;
    Receiver first;
    Receiver second;
    first.signal = &signal;
    first.other = &second;
    signal.connect(&first, &Receiver::join);
    signal();
    EXPECT_EQ(second.calls, 0);
    signal();
    EXPECT_EQ(second.calls, 1);
}

TEST(Sigslot, CopyOfAReceiverIsNotConnected)
{
    Signal signal;
    struct Plain : sigslot::has_slots<Policy>
    {
        void count() { ++calls; }
        int calls = 0;
    };
    Plain original;
    signal.connect(&original, &Plain::count);
    {
        Plain const copy(original);
        signal();
        EXPECT_EQ(copy.calls, 0);
    }
    signal();
    EXPECT_EQ(original.calls, 2);
}
