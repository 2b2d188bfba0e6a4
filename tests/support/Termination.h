// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>

/// How a process has ended that was asked to by a signal.
struct Termination
{
    bool wasRunning = false;
    bool hasCrashed = false;
    int exitCode = -1;
    /// Processor time between the signal and the end, to a hundredth of a second. A figure to be
    /// told, not to be tested: it depends on the machine.
    double secondsToEnd = 0;
};

/// Sends SIGTERM to a started process once it has used so much processor time, and waits for its
/// end. A process that has ended before is left to its own exit status.
Termination terminateAfter(QProcess& process, double processorSeconds);
