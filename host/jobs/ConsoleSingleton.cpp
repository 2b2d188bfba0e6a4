// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/jobs/ConsoleSingleton.h"

#include <mutex>

namespace Base {

struct ConsoleSingleton::State
{
    // Recursive: a listener may log.
    std::recursive_mutex guard;
    Listener listener;
};

ConsoleSingleton::ConsoleSingleton() : m_state(std::make_unique<State>()) {}
ConsoleSingleton::~ConsoleSingleton() = default;

ConsoleSingleton& ConsoleSingleton::Instance()
{
    static ConsoleSingleton console;
    return console;
}

void ConsoleSingleton::Log(char const* text)
{
    std::lock_guard const lock(m_state->guard);
    // A copy: the listener may replace itself.
    if (Listener const listener = m_state->listener)
        listener(text);
}

void ConsoleSingleton::setListener(Listener listener)
{
    std::lock_guard const lock(m_state->guard);
    m_state->listener = std::move(listener);
}

}  // namespace Base
