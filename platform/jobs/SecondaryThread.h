// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

/// Runs a function on a thread of its own; the constructor returns when it has finished. If the
/// function throws, the constructor throws the same. On a thread with an event loop the queued
/// events of that thread wait meanwhile: objects that live there see no call in between.
class SecondaryThread
{
public:
    explicit SecondaryThread(std::function<void()> const& function);
    ~SecondaryThread() = default;
    SecondaryThread(SecondaryThread const&) = delete;
    SecondaryThread& operator=(SecondaryThread const&) = delete;
};
