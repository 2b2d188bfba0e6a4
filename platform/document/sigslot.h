// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <typeinfo>
#include <utility>
#include <vector>

/// Signals and slots without a meta object. A signal is a public member that others connect to; a
/// receiver derives from has_slots, whose destructor ends its connections.
namespace sigslot {

/// The policy without locking: signal and receivers live on one thread.
struct single_threaded
{
};

template <class Policy>
class has_slots;

/// A signal as its receivers know it.
template <class Policy>
class signal_base
{
public:
    virtual ~signal_base() = default;

private:
    friend class has_slots<Policy>;
    virtual void forget(has_slots<Policy>* receiver) = 0;
};

/// The base of a receiver. Connections belong to the object: copies have none.
template <class Policy>
class has_slots
{
public:
    has_slots() = default;
    has_slots(has_slots const&) {}
    has_slots& operator=(has_slots const&) { return *this; }
    virtual ~has_slots() { disconnect_all(); }

    void disconnect_all()
    {
        auto const senders = std::exchange(m_senders, {});
        for (signal_base<Policy>* sender : senders)
            sender->forget(this);
    }

private:
    template <class, class...>
    friend class signal;

    // One entry per connection.
    std::vector<signal_base<Policy>*> m_senders;
};

/// A signal with arguments. Slots are called in the order of their connection; connecting the same
/// member of the same receiver again changes nothing. During an emission slots may connect,
/// disconnect, and destroy receivers or the signal: a slot disconnected meanwhile is not called any
/// more, a new one is first called by the next emission.
template <class Policy, class... Args>
class signal : public signal_base<Policy>
{
public:
    signal() = default;
    signal(signal const&) = delete;
    signal& operator=(signal const&) = delete;
    ~signal() override { disconnect_all(); }

    template <class Receiver, class Base>
    void connect(Receiver* receiver, void (Base::*member)(Args...))
    {
        has_slots<Policy>* const base = receiver;
        using Member = void (Base::*)(Args...);
        auto const isMember = [member](std::type_info const& type, void const* other) {
            return type == typeid(Member) && *static_cast<Member const*>(other) == member;
        };
        for (auto const& connection : m_connections)
            if (connection->receiver == base && connection->isMember(typeid(Member), &member))
                return;
        auto const slot = [receiver, member](Args... args) { (receiver->*member)(args...); };
        m_connections.push_back(std::make_shared<Connection>(Connection{base, slot, isMember}));
        base->m_senders.push_back(this);
    }

    /// Ends all connections to a receiver; without any it does nothing.
    void disconnect(has_slots<Policy>* receiver)
    {
        std::erase(receiver->m_senders, this);
        forget(receiver);
    }

    void disconnect_all()
    {
        for (auto const& connection : std::exchange(m_connections, {}))
            if (connection->receiver)
                std::erase(std::exchange(connection->receiver, nullptr)->m_senders, this);
    }

    void operator()(Args... args)
    {
        auto const connections = m_connections;
        for (auto const& connection : connections)
            if (connection->receiver)
                connection->slot(args...);
    }
    void emit_signal(Args... args) { (*this)(args...); }

    bool isConnected() const { return !m_connections.empty(); }

private:
    struct Connection
    {
        has_slots<Policy>* receiver;
        std::function<void(Args...)> slot;
        std::function<bool(std::type_info const&, void const*)> isMember;
    };

    void forget(has_slots<Policy>* receiver) override
    {
        for (auto const& connection : m_connections)
            if (connection->receiver == receiver)
                connection->receiver = nullptr;
        std::erase_if(m_connections, [](auto const& connection) { return !connection->receiver; });
    }

    std::vector<std::shared_ptr<Connection>> m_connections;
};

template <class Policy>
using signal0 = signal<Policy>;
template <class Arg1, class Policy>
using signal1 = signal<Policy, Arg1>;
template <class Arg1, class Arg2, class Policy>
using signal2 = signal<Policy, Arg1, Arg2>;

}  // namespace sigslot
