// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/JobProcess.h"

#include "platform/jobs/Exceptions.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// How long a process that is asked to end may take to leave its folder clean.
constexpr double patienceSeconds = 2;

/// In the new process: nothing but what is safe between fork and exec.
[[noreturn]] void become(char* const* words, char const* messages, JobLimits const& limits,
                         pid_t parent)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(127);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    // Ctrl-C is for the batch, which hands it on.
    setpgid(0, 0);
    if (limits.memoryBytes > 0) {
        rlimit const limit{limits.memoryBytes, limits.memoryBytes};
        setrlimit(RLIMIT_DATA, &limit);
    }
    rlimit const noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    int const nothing = open("/dev/null", O_RDWR);
    int const file = open(messages, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (nothing < 0 || file < 0)
        _exit(127);
    dup2(nothing, STDIN_FILENO);
    dup2(nothing, STDOUT_FILENO);
    dup2(file, STDERR_FILENO);
    execv("/proc/self/exe", words);
    _exit(127);
}

sigset_t endOfAProcess()
{
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGCHLD);
    return ends;
}

}  // namespace

JobProcess::JobProcess(std::vector<std::string> const& arguments,
                       std::filesystem::path const& messages, JobLimits const& limits)
    : m_limits(limits)
{
    std::string program = "freecut";
    std::vector<char*> words{program.data()};
    for (std::string const& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    pid_t const parent = getpid();
    m_id = fork();
    if (m_id == 0)
        become(words.data(), messages.c_str(), limits, parent);
    if (m_id < 0)
        throw Mell::Exception(std::string("No process can be started: ") + std::strerror(errno) +
                              ".");
}

JobProcess::~JobProcess()
{
    if (m_id < 0)
        return;
    kill(m_id, SIGKILL);
    waitpid(m_id, nullptr, 0);
}

std::optional<JobEnd> JobProcess::poll()
{
    int how = 0;
    rusage used{};
    if (wait4(m_id, &how, WNOHANG, &used) != m_id) {
        endIfTimeIsOver();
        return {};
    }
    m_id = -1;
    JobEnd end;
    end.status = WIFEXITED(how) ? WEXITSTATUS(how) : 0;
    end.signal = WIFSIGNALED(how) ? WTERMSIG(how) : 0;
    end.wasTimeOver = m_wasTimeOver;
    end.seconds = m_sinceStart.seconds();
    end.peakMemoryBytes = std::uint64_t(used.ru_maxrss) * 1024;
    return end;
}

void JobProcess::cancel()
{
    if (m_askedAt || m_id < 0)
        return;
    m_askedAt = m_sinceStart.seconds();
    kill(m_id, SIGTERM);
}

void JobProcess::endIfTimeIsOver()
{
    if (m_askedAt && m_sinceStart.seconds() > *m_askedAt + patienceSeconds)
        kill(m_id, SIGKILL);
    if (m_askedAt || m_limits.seconds <= 0 || m_sinceStart.seconds() < m_limits.seconds)
        return;
    m_wasTimeOver = true;
    cancel();
}

ChildWatch::ChildWatch()
{
    sigset_t const ends = endOfAProcess();
    sigprocmask(SIG_BLOCK, &ends, nullptr);
}

ChildWatch::~ChildWatch()
{
    sigset_t const ends = endOfAProcess();
    sigprocmask(SIG_UNBLOCK, &ends, nullptr);
}

void ChildWatch::wait() const
{
    sigset_t const ends = endOfAProcess();
    timespec const patience{0, 50'000'000};
    sigtimedwait(&ends, nullptr, &patience);
}
