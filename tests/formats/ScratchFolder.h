// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// A folder of a test's own, removed with everything in it.
class ScratchFolder
{
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(ScratchFolder const&) = delete;
    ScratchFolder& operator=(ScratchFolder const&) = delete;

    std::filesystem::path const& path() const { return m_path; }
    std::filesystem::path operator/(std::string const& name) const { return m_path / name; }

    /// Writes a file and returns its path.
    std::filesystem::path file(std::string const& name, std::string_view content) const;
    /// The names of all files, hidden ones included, sorted.
    std::vector<std::string> names() const;

private:
    std::filesystem::path m_path;
};

std::string contentOf(std::filesystem::path const& path);

/// The bytes of a value as it lies in memory.
template <typename T>
std::string bytesOf(T const& value)
{
    return std::string(reinterpret_cast<char const*>(&value), sizeof value);
}

/// A ZIP package of uncompressed entries.
struct ZipEntry
{
    std::string name;
    std::string content;
};
std::string storedZip(std::span<ZipEntry const> entries);

/// A 3MF package around the content of its <model> element.
std::string threeMfPackage(std::string const& unit, std::string const& resourcesAndBuild);
