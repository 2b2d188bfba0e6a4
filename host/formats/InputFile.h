// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>

namespace Formats {

using Progress = std::function<void(int)>;

/// A regular file that is open for reading, front to back. Progress is told with every read, as the
/// share of the file that has been read.
class InputFile
{
public:
    /// Throws FileError for what is not there, not readable, not a regular file, or empty.
    InputFile(std::filesystem::path path, Progress progress);
    ~InputFile();
    InputFile(InputFile const&) = delete;
    InputFile& operator=(InputFile const&) = delete;

    std::filesystem::path const& path() const { return m_path; }
    std::uint64_t size() const { return m_size; }
    /// For formats whose reading is done by a library.
    Progress const& progress() const { return m_progress; }
    /// The offset of the next byte that read() gives.
    std::uint64_t position() const { return m_position; }

    /// Fills the buffer as far as the file goes, and returns how many bytes that were. Throws
    /// FileError if the system cannot read on, and lets pass what progress throws.
    std::size_t read(std::span<std::byte> buffer);
    void seek(std::uint64_t offset);

    /// The first bytes, without moving the position.
    std::size_t peekHead(std::span<std::byte> buffer) const;

private:
    void tellProgress() const;

    std::filesystem::path m_path;
    Progress m_progress;
    int m_descriptor = -1;
    std::uint64_t m_size = 0;
    std::uint64_t m_position = 0;
};

}  // namespace Formats
