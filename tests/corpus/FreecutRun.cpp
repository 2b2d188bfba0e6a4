// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/corpus/FreecutRun.h"

#include "tests/support/Rounds.h"

#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <signal.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace corpus {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr char const* errorFile = "stderr.txt";

std::string contentOf(fs::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

/// In the child: only calls that are allowed between fork and exec.
[[noreturn]] void become(char* const* arguments, char const* folder, Limits const& limits)
{
    // Sanitizers take more address space than any limit.
    if (!isUnderSanitizers) {
        rlimit const memory{limits.megabytes << 20, limits.megabytes << 20};
        setrlimit(RLIMIT_AS, &memory);
    }
    rlimit const noDump{0, 0};
    setrlimit(RLIMIT_CORE, &noDump);
    if (chdir(folder) == 0) {
        dup2(open("/dev/null", O_WRONLY), 1);
        dup2(open(errorFile, O_WRONLY | O_CREAT | O_TRUNC, 0644), 2);
        execv(arguments[0], arguments);
    }
    _exit(127);
}

/// Waits for a child; true if it ended before the limit.
bool waitFor(pid_t child, Clock::time_point limit, int& status, rusage& usage)
{
    for (;;) {
        if (wait4(child, &status, WNOHANG, &usage) == child)
            return true;
        if (Clock::now() > limit)
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    kill(child, SIGKILL);
    wait4(child, &status, 0, &usage);
    return false;
}

}  // namespace

Outcome runLimited(std::string const& program, std::vector<std::string> const& arguments,
                   fs::path const& folder, Limits const& limits)
{
    std::vector<char*> pointers{const_cast<char*>(program.c_str())};
    for (std::string const& argument : arguments)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);

    auto const start = Clock::now();
    pid_t const child = fork();
    if (child < 0)
        throw std::runtime_error("No process could be started.");
    if (child == 0)
        become(pointers.data(), folder.c_str(), limits);
    int status = 0;
    rusage usage{};
    bool const isInTime =
        waitFor(child, start + std::chrono::seconds(limits.seconds), status, usage);

    Outcome outcome;
    outcome.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    outcome.peakMegabytes = std::size_t(usage.ru_maxrss) >> 10;
    outcome.errors = contentOf(folder / errorFile);
    if (!isInTime)
        outcome.end = Outcome::End::Timeout;
    else if (WIFSIGNALED(status)) {
        outcome.end = Outcome::End::Signal;
        outcome.status = WTERMSIG(status);
    } else
        outcome.status = WEXITSTATUS(status);
    return outcome;
}

void writeStl(fs::path const& path, Soup const& soup)
{
    std::ofstream file(path, std::ios::binary);
    std::string const header(80, ' ');
    auto const count = std::uint32_t(soup.triangles.size());
    file.write(header.data(), 80);
    file.write(reinterpret_cast<char const*>(&count), 4);
    float const normal[3] = {};
    for (auto const& t : soup.triangles) {
        file.write(reinterpret_cast<char const*>(normal), 12);
        for (std::uint32_t const corner : t)
            file.write(reinterpret_cast<char const*>(&soup.points[corner]), 12);
        file.write("\0\0", 2);
    }
}

Soup readStl(fs::path const& path)
{
    std::string const bytes = contentOf(path);
    Soup soup;
    std::uint32_t count = 0;
    if (bytes.size() < 84)
        return soup;
    std::memcpy(&count, bytes.data() + 80, 4);
    if (bytes.size() != 84 + std::size_t(count) * 50)
        return soup;
    for (std::size_t i = 0; i < count; ++i) {
        float c[9];
        std::memcpy(c, bytes.data() + 84 + i * 50 + 12, sizeof c);
        std::uint32_t const a = soup.add({c[0], c[1], c[2]});
        soup.add({c[3], c[4], c[5]});
        soup.add({c[6], c[7], c[8]});
        soup.add(a, a + 1, a + 2);
    }
    soup.joinPoints();
    return soup;
}

}  // namespace corpus
