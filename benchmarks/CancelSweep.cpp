// SPDX-License-Identifier: GPL-3.0-or-later
// cancel_sweep MOMENTS PROGRAM [ARGUMENTS...]
//
// Runs a command once to its end, and then again and again, each time with a polite termination at
// another moment: evenly spread over the processor time that it takes. Tells how much processor
// time passes from the signal to the end, and what the command ends with.
#include "tests/support/CancelledProcess.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>

int main(int argc, char** argv)
{
    int const moments = argc > 1 ? std::atoi(argv[1]) : 0;
    if (argc < 3 || moments < 1) {
        std::fputs("usage: cancel_sweep MOMENTS PROGRAM [ARGUMENTS...]\n", stderr);
        return 2;
    }
    CancelledProcess const process(argv[2], {argv + 3, argv + argc});
    CancelledProcess::End const whole = process.run();
    struct Delay
    {
        double after, at;
    };
    std::vector<Delay> delays;
    std::map<int, int> statuses;
    for (int i = 0; i < moments; ++i) {
        double const at = whole.seconds * (i + 0.5) / moments;
        CancelledProcess::End const end = process.cancelAfter(at, SIGTERM);
        ++statuses[end.status];
        if (end.isInterrupted)
            delays.push_back({end.secondsAfterSignal, at});
    }
    std::sort(delays.begin(), delays.end(),
              [](Delay const& a, Delay const& b) { return a.after > b.after; });
    std::printf("%.2f s, status %d; %zu of %d runs interrupted\n", whole.seconds, whole.status,
                delays.size(), moments);
    for (auto const& [status, count] : statuses)
        std::printf("status %d: %d\n", status, count);
    if (!delays.empty())
        std::printf("median %.0f ms\n", 1e3 * delays[delays.size() / 2].after);
    for (std::size_t i = 0; i < std::min<std::size_t>(delays.size(), 5); ++i)
        std::printf("%4.0f ms after %.2f s\n", 1e3 * delays[i].after, delays[i].at);
    return 0;
}
