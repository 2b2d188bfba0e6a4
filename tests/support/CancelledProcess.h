// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// A program that runs until it has used some processor time and is then sent a signal: moments that
/// mean the same on a busy machine and on an idle one.
class CancelledProcess
{
public:
    /// program    a path, or a name that is looked up
    /// folder     in which it runs
    CancelledProcess(std::string program, std::vector<std::string> arguments,
                     std::string folder = ".")
        : m_program(std::move(program)),
          m_arguments(std::move(arguments)),
          m_folder(std::move(folder))
    {}

    struct End
    {
        /// As a shell tells it: 128 and the signal's number for one that was killed.
        int status = 0;
        /// Whether it was still running when its moment came.
        bool isInterrupted = false;
        /// Processor time in all, and from the signal to the end; seconds of all its threads.
        double seconds = 0;
        double secondsAfterSignal = 0;
    };

    /// Runs to the end without a signal; what is printed is dropped, as in all runs.
    End run() const { return run({}, 0); }
    /// Sends the signal once the process has used so much processor time.
    End cancelAfter(double seconds, int signalNumber) const { return run(seconds, signalNumber); }

private:
    End run(std::optional<double> seconds, int signalNumber) const;

    std::string m_program;
    std::vector<std::string> m_arguments;
    std::string m_folder;
};
