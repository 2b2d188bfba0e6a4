// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/JobNeed.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

/// Of a job without triangles.
constexpr double baseMb = 40;

std::string headOf(std::string const& file)
{
    std::string head(128, '\0');
    std::ifstream stream(file, std::ios::binary);
    stream.read(head.data(), std::streamsize(head.size()));
    head.resize(std::size_t(stream.gcount()));
    return head;
}

/// Whether the count in the head is that of the records behind it.
bool isBinaryStl(std::string const& head, std::uintmax_t size)
{
    constexpr std::size_t countPlace = 80;
    std::uint32_t count = 0;
    if (head.size() < countPlace + sizeof count)
        return false;
    std::memcpy(&count, &head[countPlace], sizeof count);
    return size == countPlace + sizeof count + std::uintmax_t(50) * count;
}

/// Bytes that a triangle takes in a file, its share of the vertices included.
double bytesPerTriangle(std::string const& file, std::uintmax_t size)
{
    std::string const head = headOf(file);
    if (head.starts_with("PK"))
        return 15;
    if (head.starts_with("ply"))
        return head.find("format ascii") == std::string::npos ? 19 : 35;
    if (isBinaryStl(head, size))
        return 50;
    return head.starts_with("solid") ? 170 : 35;
}

/// Bytes that a command has in memory for each triangle that it reads.
double memoryPerTriangle(std::string const& command)
{
    if (command == "info")
        return 100;
    if (command == "convert")
        return 140;
    if (command == "boolean")
        return 220;
    // Cuts by a tool and by a plane without connectors take less.
    return command == "zcut" || command == "repair" ? 310 : 290;
}

}  // namespace

double neededMemoryMb(BatchJob const& job, std::vector<std::string> const& files)
{
    double triangles = 0;
    for (std::string const& file : files) {
        std::error_code error;
        auto const size = std::filesystem::file_size(file, error);
        if (!error)
            triangles += double(size) / bytesPerTriangle(file, size);
    }
    return baseMb + triangles * memoryPerTriangle(job.command) / 1e6;
}
