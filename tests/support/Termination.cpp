// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Termination.h"

#include <fstream>
#include <signal.h>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

namespace {

double seconds(timeval const& time)
{
    return double(time.tv_sec) + 1e-6 * double(time.tv_usec);
}

double usedByEndedChildren()
{
    rusage usage = {};
    getrusage(RUSAGE_CHILDREN, &usage);
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Of a process that runs; negative once it is gone.
double usedBy(qint64 process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string line;
    if (!std::getline(file, line))
        return -1;
    // The name, in brackets, may have blanks; the times are the 14th and 15th word.
    std::size_t place = line.rfind(')');
    for (int word = 2; word < 14 && place != std::string::npos; ++word)
        place = line.find(' ', place + 1);
    if (place == std::string::npos)
        return -1;
    std::size_t end = 0;
    long const user = std::stol(line.substr(place), &end);
    long const system = std::stol(line.substr(place + end));
    return double(user + system) / double(sysconf(_SC_CLK_TCK));
}

}  // namespace

Termination terminateAfter(QProcess& process, double processorSeconds)
{
    double const before = usedByEndedChildren();
    qint64 const id = process.processId();
    double used = 0;
    while (!process.waitForFinished(2) && process.state() != QProcess::NotRunning &&
           (used = usedBy(id)) >= 0 && used < processorSeconds) {
    }
    Termination end;
    end.wasRunning = process.state() != QProcess::NotRunning;
    if (end.wasRunning) {
        kill(pid_t(id), SIGTERM);
        process.waitForFinished(-1);
    }
    end.hasCrashed = process.exitStatus() != QProcess::NormalExit;
    end.exitCode = process.exitCode();
    end.secondsToEnd = end.wasRunning ? usedByEndedChildren() - before - used : 0;
    return end;
}
