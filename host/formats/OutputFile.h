// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace Formats {

/// Whether a file that is already there may be replaced.
enum class Overwrite
{
    Refuse,
    Allow
};

/// A file that comes into being all at once: everything goes to a temporary name beside the target,
/// and commit() gives it its own name in one step. Without a commit, after an exception or a
/// cancel, the temporary file is removed and the target stays what it was. A device or a pipe is written
/// to as it comes instead: it must not be replaced by a file.
class OutputFile
{
public:
    /// Throws FileError if the target is a folder, exists without permission to overwrite it, or
    /// its folder takes no new file. A link is followed, so that it stays a link.
    OutputFile(std::filesystem::path target, Overwrite overwrite);
    ~OutputFile();
    OutputFile(OutputFile const&) = delete;
    OutputFile& operator=(OutputFile const&) = delete;

    std::filesystem::path const& path() const { return m_target; }

    /// Appends. Throws FileError when the system takes no more, for instance on a full disk.
    void write(std::span<std::byte const> bytes);
    void write(std::string_view text);

    /// Writes over what was written before, within it. Throws FileError, also for a device or a pipe.
    void rewrite(std::uint64_t offset, std::span<std::byte const> bytes);

    /// Gives the file another name than it was begun with, and another permission to replace what
    /// bears it, then as commit().
    void commitAs(std::filesystem::path const& target, Overwrite overwrite);

    /// Gives the file its name. A file of that name that appeared meanwhile is still not replaced
    /// without permission; that throws FileError. One that may be replaced is so only when the new
    /// content has reached the disk.
    void commit();

private:
    static constexpr std::size_t bufferSize = std::size_t(1) << 20;

    void openStream();
    void createTemporary();
    void keepPermissionsOfTarget() const;
    void writeThrough(std::span<std::byte const> bytes);
    void flush();
    void sync() const;
    void rename();

    std::filesystem::path m_target;
    Overwrite m_overwrite;
    /// Empty for a device or a pipe.
    std::filesystem::path m_temporary;
    int m_descriptor = -1;
    bool m_isCommitted = false;
    std::unique_ptr<std::byte[]> m_buffer;
    std::size_t m_filled = 0;
};

}  // namespace Formats
