// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace Base {

/// The log console: takes text lines from any thread and hands them to its listener, by default
/// nobody. The lines are for developers and curious users; what a user must know goes elsewhere.
class ConsoleSingleton
{
public:
    static ConsoleSingleton& Instance();

    /// Logs one line.
    void Log(char const* text);
    void Log(std::string const& text) { Log(text.c_str()); }

    using Listener = std::function<void(std::string const&)>;
    /// Replaces the listener; an empty one silences the console. It is called on the logging
    /// thread, one call at a time.
    void setListener(Listener listener);

private:
    ConsoleSingleton();
    ~ConsoleSingleton();
    struct State;
    std::unique_ptr<State> m_state;
};

}  // namespace Base
