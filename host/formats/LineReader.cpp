// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/LineReader.h"

#include "host/formats/FileError.h"
#include "host/formats/TextTokens.h"

#include <cstring>

namespace Formats {
namespace {

constexpr std::size_t longestLine = std::size_t(1) << 26;

}  // namespace

LineReader::LineReader(InputFile& input, std::size_t bufferBytes)
    : m_input(input), m_buffer(bufferBytes), m_offset(input.position())
{}

bool LineReader::next(std::string_view& line)
{
    std::size_t searched = 0;
    for (;;) {
        char const* const start = m_buffer.data() + m_begin;
        std::size_t const length = m_end - m_begin;
        void const* const found = std::memchr(start + searched, '\n', length - searched);
        if (found) {
            std::size_t const lineLength = std::size_t(static_cast<char const*>(found) - start);
            line = {start, lineLength};
            m_begin += lineLength + 1;
            m_offset += lineLength + 1;
            break;
        }
        searched = length;
        if (refill())
            continue;
        if (length == 0)
            return false;
        line = {m_buffer.data() + m_begin, length};
        m_begin = m_end;
        m_offset += length;
        break;
    }
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    if (m_lineNumber == 0)
        line = withoutByteOrderMark(line);
    ++m_lineNumber;
    return true;
}

void LineReader::skip(std::size_t bytes, std::uint64_t lines)
{
    m_begin += bytes;
    m_offset += bytes;
    m_lineNumber += lines;
}

bool LineReader::refill()
{
    if (m_isAtEnd)
        return false;
    std::size_t const kept = m_end - m_begin;
    std::memmove(m_buffer.data(), m_buffer.data() + m_begin, kept);
    m_begin = 0;
    m_end = kept;
    if (kept == m_buffer.size()) {
        if (kept >= longestLine)
            throw FileError::atLine(
                m_input.path(), m_lineNumber + 1,
                FileError::tr("it has no end within 64 MiB; a text file was expected."));
        m_buffer.resize(kept * 2);
    }
    std::span const free(m_buffer.data() + m_end, m_buffer.size() - m_end);
    std::size_t const count = m_input.read(std::as_writable_bytes(free));
    m_end += count;
    m_isAtEnd = count < free.size();
    return count > 0;
}

}  // namespace Formats
