// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/memory/AvailableMemory.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <locale>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

std::uint64_t freeOnMachine()
{
    std::ifstream info("/proc/meminfo");
    info.imbue(std::locale::classic());
    std::string key;
    std::uint64_t kibibytes = 0;
    std::string unit;
    while (info >> key >> kibibytes) {
        if (key == "MemAvailable:")
            return kibibytes * 1024;
        std::getline(info, unit);
    }
    return unlimited;
}

std::uint64_t numberIn(char const* file)
{
    std::ifstream stream(file);
    stream.imbue(std::locale::classic());
    std::uint64_t value = unlimited;
    return stream >> value ? value : unlimited;
}

std::uint64_t freeInControlGroup()
{
    std::uint64_t const limit = numberIn("/sys/fs/cgroup/memory.max");
    std::uint64_t const used = numberIn("/sys/fs/cgroup/memory.current");
    if (limit == unlimited || used == unlimited)
        return unlimited;
    return limit > used ? limit - used : 0;
}

/// Of what the system counts in pages: the numbers in /proc/self/statm, from 0.
enum PageCount
{
    AddressSpace = 0,
    Data = 5,
};

std::uint64_t bytesUsed(PageCount what)
{
    std::ifstream counts("/proc/self/statm");
    counts.imbue(std::locale::classic());
    std::uint64_t pages = 0;
    for (int i = 0; i <= what; ++i)
        counts >> pages;
    return counts ? pages * std::uint64_t(sysconf(_SC_PAGESIZE)) : 0;
}

std::uint64_t freeWithin(int resource, PageCount what)
{
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY)
        return unlimited;
    std::uint64_t const used = bytesUsed(what);
    return limit.rlim_cur > used ? limit.rlim_cur - used : 0;
}

}  // namespace

std::uint64_t availableMemory()
{
    return std::min({freeOnMachine(), freeInControlGroup(), freeWithin(RLIMIT_AS, AddressSpace),
                     freeWithin(RLIMIT_DATA, Data)});
}
