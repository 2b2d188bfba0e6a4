// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/CancelledProcess.h"

#include <fcntl.h>
#include <signal.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

namespace {

/// The processor time of a process that has not been waited for.
double processorTime(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return double(time.tv_sec) + 1e-9 * double(time.tv_nsec);
}

double secondsOf(timeval const& time)
{
    return double(time.tv_sec) + 1e-6 * double(time.tv_usec);
}

bool hasEnded(pid_t process)
{
    siginfo_t info{};
    return waitid(P_PID, id_t(process), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           info.si_pid == process;
}

pid_t start(std::string const& program, std::vector<std::string> const& arguments,
            std::string const& folder)
{
    std::vector<char*> list{const_cast<char*>(program.c_str())};
    for (std::string const& argument : arguments)
        list.push_back(const_cast<char*>(argument.c_str()));
    list.push_back(nullptr);
    pid_t const process = fork();
    if (process < 0)
        throw std::runtime_error("no process can be started");
    if (process > 0)
        return process;
    // What a shell starts in the background ignores Ctrl-C, and would until it listens.
    for (int const number : {SIGINT, SIGTERM, SIGHUP})
        signal(number, SIG_DFL);
    int const nowhere = open("/dev/null", O_RDWR);
    for (int const stream : {0, 1, 2})
        dup2(nowhere, stream);
    if (chdir(folder.c_str()) == 0)
        execvp(list[0], list.data());
    _exit(127);
}

}  // namespace

CancelledProcess::End CancelledProcess::run(std::optional<double> seconds, int signalNumber) const
{
    constexpr timespec pause{0, 200'000};
    pid_t const process = start(m_program, m_arguments, m_folder);
    End end;
    double atSignal = 0;
    clockid_t clock{};
    if (seconds && clock_getcpuclockid(process, &clock) == 0) {
        while (!hasEnded(process) && processorTime(clock) < *seconds)
            nanosleep(&pause, nullptr);
        if (!hasEnded(process)) {
            atSignal = processorTime(clock);
            kill(process, signalNumber);
            end.isInterrupted = true;
        }
    }
    int status = 0;
    rusage usage{};
    wait4(process, &status, 0, &usage);
    end.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    end.seconds = secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
    end.secondsAfterSignal = end.isInterrupted ? end.seconds - atSignal : 0;
    return end;
}
