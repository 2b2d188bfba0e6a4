// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PlyValues.h"

#include "host/formats/TextTokens.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace Formats {
namespace {

constexpr std::size_t bufferSize = std::size_t(1) << 20;

template <typename Number>
double numberIn(std::byte const* bytes)
{
    Number number{};
    std::memcpy(&number, bytes, sizeof number);
    return double(number);
}

double numberIn(std::byte const* bytes, PlyType type)
{
    switch (type) {
        case PlyType::Int8:
            return numberIn<std::int8_t>(bytes);
        case PlyType::UInt8:
            return numberIn<std::uint8_t>(bytes);
        case PlyType::Int16:
            return numberIn<std::int16_t>(bytes);
        case PlyType::UInt16:
            return numberIn<std::uint16_t>(bytes);
        case PlyType::Int32:
            return numberIn<std::int32_t>(bytes);
        case PlyType::UInt32:
            return numberIn<std::uint32_t>(bytes);
        case PlyType::Float:
            return numberIn<float>(bytes);
        case PlyType::Double:
            return numberIn<double>(bytes);
    }
    return 0;
}

}  // namespace

double PlyTextValues::next(PlyType type)
{
    std::string_view word;
    while ((word = takeWord(m_rest)).empty())
        if (!m_lines.next(m_rest))
            throw error(FileError::tr("the file ends here, where %1 was expected; it is truncated.")
                            .arg(FileError::tr("a number")));
    if (type == PlyType::Float || type == PlyType::Double) {
        // By way of float, so that a text means the same whether its type is float or double.
        if (auto const value = coordinateFrom(word))
            return *value;
    } else if (auto const value = numberFrom<std::int64_t>(word)) {
        return double(*value);
    }
    throw error(FileError::tr("%1 was expected, but there is %2.")
                    .arg(FileError::tr("a number"), quoted(word)));
}

FileError PlyTextValues::error(QString const& problem) const
{
    return FileError::atLine(m_input.path(), m_lines.lineNumber(), problem);
}

PlyBinaryValues::PlyBinaryValues(InputFile& input, std::endian order)
    : m_input(input), m_isSwapped(order != std::endian::native), m_buffer(bufferSize)
{}

double PlyBinaryValues::next(PlyType type)
{
    std::size_t const size = sizeOf(type);
    m_lastSize = 0;
    if (m_end - m_next < size)
        refill();
    if (m_end - m_next < size)
        throw FileError::atByte(
            m_input.path(), m_input.position(),
            FileError::tr(
                "the file ends here, where more numbers were expected; it is truncated."));
    std::array<std::byte, 8> bytes;
    std::copy_n(&m_buffer[m_next], size, bytes.data());
    if (m_isSwapped)
        std::reverse(bytes.begin(), bytes.begin() + std::ptrdiff_t(size));
    m_next += size;
    m_lastSize = size;
    return numberIn(bytes.data(), type);
}

void PlyBinaryValues::refill()
{
    std::size_t const kept = m_end - m_next;
    std::copy_n(m_buffer.data() + m_next, kept, m_buffer.data());
    m_next = 0;
    m_end = kept + m_input.read(std::span(m_buffer).subspan(kept));
}

FileError PlyBinaryValues::error(QString const& problem) const
{
    return FileError::atByte(m_input.path(), m_input.position() - (m_end - m_next) - m_lastSize,
                             problem);
}

}  // namespace Formats
