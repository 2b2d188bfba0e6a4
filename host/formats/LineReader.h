// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/InputFile.h"

#include <string_view>
#include <vector>

namespace Formats {

/// Text line by line, through a buffer of fixed size that grows only for a long line.
class LineReader
{
public:
    static constexpr std::size_t usualBuffer = std::size_t(1) << 18;

    explicit LineReader(InputFile& input, std::size_t bufferBytes = usualBuffer);

    /// The next line, without its end ("\n" or "\r\n"); valid until the next call. False at the end
    /// of the file. Throws FileError for a line that no text file has.
    bool next(std::string_view& line);

    /// Of the line that next() gave last, from 1.
    std::uint64_t lineNumber() const { return m_lineNumber; }
    /// The offset in the file of what follows that line.
    std::uint64_t offset() const { return m_offset; }

    /// What of the file is in memory behind that line: the beginnings of further lines, or nothing.
    std::string_view ahead() const { return {m_buffer.data() + m_begin, m_end - m_begin}; }
    /// Leaves out what ahead() begins with: so many whole lines, of so many bytes together.
    void skip(std::size_t bytes, std::uint64_t lines);

private:
    bool refill();

    InputFile& m_input;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    std::uint64_t m_lineNumber = 0;
    std::uint64_t m_offset = 0;
    bool m_isAtEnd = false;
};

}  // namespace Formats
