// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/OutputFile.h"
#include "host/formats/PackedText.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Formats {

/// Writes a ZIP package, entry after entry. An entry is compressed while it is written and kept in
/// memory until it is complete, so that its sizes stand in front of it, where every reader finds
/// them. Entries and packages may be larger than 4 GiB. The same content gives the same bytes:
/// entries bear no date.
class ZipWriter
{
public:
    /// Takes the package's bytes, piece after piece.
    using Sink = std::function<void(std::string_view)>;

    explicit ZipWriter(Sink sink);
    explicit ZipWriter(OutputFile& output);
    ~ZipWriter();
    ZipWriter(ZipWriter const&) = delete;
    ZipWriter& operator=(ZipWriter const&) = delete;

    /// Opens an entry; the one before has been ended.
    void beginEntry(std::string name);
    /// Appends to the open entry.
    void write(std::string_view text);
    /// Throws FileError when the file takes no more.
    void endEntry();
    /// A whole entry at once.
    void addEntry(std::string name, std::string_view text);

    /// Writes the directory, after the last entry.
    void finish();

private:
    struct Entry
    {
        std::string name;
        std::uint64_t offset = 0;
        std::uint64_t size = 0;
        std::uint64_t packedSize = 0;
        std::uint32_t checksum = 0;
    };

    void put(std::string_view bytes);
    std::string directoryEntry(Entry const& entry) const;
    std::string directoryEnd(std::uint64_t start, std::uint64_t size) const;

    Sink m_sink;
    std::uint64_t m_position = 0;
    std::vector<Entry> m_entries;
    /// Of the open entry.
    std::unique_ptr<PackedText> m_text;
};

}  // namespace Formats
