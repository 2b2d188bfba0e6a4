// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchmarks/StackSampler.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <execinfo.h>
#include <map>
#include <memory>
#include <pthread.h>

namespace {

constexpr std::chrono::milliseconds lookEvery{4};
constexpr int deepest = 60;
constexpr std::size_t mostSamples = 512;
/// Functions that are told of each stack.
constexpr std::size_t toldFunctions = 9;

struct Sample
{
    std::array<void*, deepest> frames;
    int depth = 0;
};

// Written by the signal's handler, on the thread that is watched.
std::array<Sample, mostSamples> samples;
std::atomic<std::size_t> sampleCount = 0;

void look(int)
{
    std::size_t const at = sampleCount;
    if (at == mostSamples)
        return;
    samples[at].depth = backtrace(samples[at].frames.data(), deepest);
    sampleCount = at + 1;
}

std::string functionName(char const* file, std::size_t offset)
{
    char command[512];
    std::snprintf(command, sizeof command, "addr2line -f -C -e '%s' 0x%zx 2>/dev/null", file,
                  offset);
    std::unique_ptr<FILE, int (*)(FILE*)> const pipe(popen(command, "r"), pclose);
    char line[512] = "";
    if (!pipe || !std::fgets(line, sizeof line, pipe.get()))
        return {};
    std::string name(line, std::strcspn(line, "(\n"));
    return name == "??" ? std::string() : name;
}

std::string nameOf(void* address)
{
    static std::map<void*, std::string> known;
    auto const [place, isNew] = known.try_emplace(address);
    Dl_info info;
    if (!isNew || !dladdr(address, &info) || !info.dli_fname)
        return place->second;
    auto const offset =
        std::size_t(static_cast<char*>(address) - static_cast<char*>(info.dli_fbase));
    std::string const name = functionName(info.dli_fname, offset - 1);
    char const* const slash = std::strrchr(info.dli_fname, '/');
    return place->second = name.empty() ? std::string(slash ? slash + 1 : info.dli_fname) : name;
}

std::string stackOf(Sample const& sample)
{
    std::string text, last;
    std::size_t told = 0;
    // The handler and what calls it come first.
    for (int i = 2; i < sample.depth && told < toldFunctions; ++i) {
        std::string const name = nameOf(sample.frames[std::size_t(i)]);
        if (name == last)
            continue;
        text += (told++ ? " < " : "") + name;
        last = name;
    }
    return text;
}

}  // namespace

StackSampler::StackSampler(std::chrono::milliseconds tooLong)
    : m_tooLong(tooLong), m_watched(pthread_self())
{
    // The first call loads a library.
    void* frame = nullptr;
    backtrace(&frame, 1);
    struct sigaction action = {};
    action.sa_handler = look;
    action.sa_flags = SA_RESTART;
    sigaction(SIGPROF, &action, nullptr);
    m_thread = std::thread([this] { watch(); });
}

StackSampler::~StackSampler()
{
    m_isEnding = true;
    m_thread.join();
}

void StackSampler::begin()
{
    sampleCount = 0;
    m_since = Clock::now().time_since_epoch().count();
}

void StackSampler::end()
{
    m_since = 0;
}

void StackSampler::watch()
{
    while (!m_isEnding) {
        std::this_thread::sleep_for(lookEvery);
        Clock::rep const since = m_since;
        if (since != 0 && Clock::now().time_since_epoch() - Clock::duration(since) > m_tooLong)
            pthread_kill(m_watched, SIGPROF);
    }
}

std::vector<std::string> StackSampler::seen()
{
    std::map<std::string, int> counts;
    for (std::size_t i = 0; i < sampleCount; ++i)
        ++counts[stackOf(samples[i])];
    std::vector<std::pair<int, std::string>> order;
    for (auto const& [stack, count] : counts)
        order.emplace_back(count, stack);
    std::sort(order.rbegin(), order.rend());
    std::vector<std::string> lines;
    for (auto const& [count, stack] : order)
        lines.push_back(std::to_string(count) + "  " + stack);
    return lines;
}
