// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Formats {

/// Compresses a text as one deflate stream, without zlib's own header, on several threads. The text
/// is divided into pieces of one size, so that the bytes do not depend on how many threads there
/// are.
class PackedText
{
public:
    PackedText();
    ~PackedText();
    PackedText(PackedText const&) = delete;
    PackedText& operator=(PackedText const&) = delete;

    void write(std::string_view text);
    /// Once, after the last text; what follows tells about the whole.
    void finish();

    std::string const& bytes() const { return m_bytes; }
    /// Of the text that was written.
    std::uint64_t size() const { return m_size; }
    /// The CRC-32 of the text.
    std::uint32_t checksum() const { return m_checksum; }

private:
    struct Piece;
    struct Tasks;

    void start(bool isLast);
    void collect();

    std::unique_ptr<Tasks> m_tasks;
    /// Under way, in the order of the text.
    std::vector<std::unique_ptr<Piece>> m_pieces;
    std::string m_text;
    /// The end of the piece before, to which the next may refer.
    std::string m_dictionary;
    std::string m_bytes;
    std::uint64_t m_size = 0;
    std::uint32_t m_checksum = 0;
};

}  // namespace Formats
