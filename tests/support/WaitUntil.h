// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Rounds.h"

#include <QCoreApplication>
#include <QElapsedTimer>

/// How long a test waits for what is to come, in milliseconds: far longer than it takes on a loaded
/// machine, and under sanitizers as much longer as they may slow it down. What comes is not waited
/// for any longer, so only a test that fails takes this time.
inline constexpr int patienceMs = isUnderSanitizers ? 300'000 : 30'000;

/// Handles events until a condition holds; false if it does not while patience lasts.
template <typename Condition>
bool waitUntil(Condition const& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < patienceMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return condition();
}
