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

std::uint64_t freeAddressSpace()
{
    rlimit limit{};
    if (getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY)
        return unlimited;
    std::uint64_t const pages = numberIn("/proc/self/statm");
    if (pages == unlimited)
        return limit.rlim_cur;
    std::uint64_t const used = pages * std::uint64_t(sysconf(_SC_PAGESIZE));
    return limit.rlim_cur > used ? limit.rlim_cur - used : 0;
}

}  // namespace

std::uint64_t availableMemory()
{
    return std::min({freeOnMachine(), freeInControlGroup(), freeAddressSpace()});
}
