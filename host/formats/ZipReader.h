// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/InputFile.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Formats {

/// The directory of a ZIP package; empty for a file that is none or is damaged.
class ZipReader
{
public:
    struct Entry
    {
        std::string name;
        std::uint64_t headerOffset = 0;
        std::uint64_t size = 0;
        std::uint64_t packedSize = 0;
        std::uint32_t checksum = 0;
        /// As a ZIP package counts them: 0 for none, 8 for deflate.
        int method = 0;

        bool isDeflated() const { return method == 8; }
        bool isStored() const { return method == 0; }
    };

    /// Reads the directory. Throws FileError if the system cannot read on.
    explicit ZipReader(InputFile& input);

    std::vector<Entry> const& entries() const { return m_entries; }
    /// Null if there is none of that name.
    Entry const* find(std::string_view name) const;

private:
    void readDirectory(std::string_view directory);

    std::vector<Entry> m_entries;
};

/// The content of an entry, front to back. Progress is that of the file that is read.
///
/// Entries that are neither deflated nor stored count as damaged. What a deflated one holds is unpacked at
/// once where it is not large, in half the time that it takes piece after piece.
///
/// See docs/decisions/0023-unpacking-at-once.md.
class ZipEntryStream
{
public:
    ZipEntryStream(InputFile& input, ZipReader::Entry const& entry);
    ~ZipEntryStream();
    ZipEntryStream(ZipEntryStream const&) = delete;
    ZipEntryStream& operator=(ZipEntryStream const&) = delete;

    /// Fills the buffer as far as the entry goes and returns how many bytes that were. Throws
    /// FileError for content that is damaged, which shows with the last byte at the latest.
    std::size_t read(std::span<char> buffer);
    /// All that is left.
    std::string readAll();

private:
    struct State;
    void unpackAtOnce();
    std::string packedBytes();
    std::size_t takeUnpacked(std::span<char> buffer);
    std::size_t inflateInto(std::span<char> buffer);
    void fillInput();
    int copyStored();
    void requireSound() const;
    [[noreturn]] void fail() const;

    InputFile& m_input;
    ZipReader::Entry const& m_entry;
    std::unique_ptr<State> m_state;
};

}  // namespace Formats
