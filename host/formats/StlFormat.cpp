// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/StlFormat.h"

#include "host/formats/AsciiStlReader.h"
#include "host/formats/BinaryStlReader.h"
#include "host/formats/StlWriter.h"
#include "host/formats/TextTokens.h"

#include <QtGlobal>

#include <algorithm>
#include <array>

namespace Formats {

std::string_view StlFormat::name() const
{
    return m_written == Encoding::Binary ? "stl" : "stl-ascii";
}

std::string_view StlFormat::title() const
{
    return m_written == Encoding::Binary ? QT_TRANSLATE_NOOP("Formats", "STL, binary")
                                         : QT_TRANSLATE_NOOP("Formats", "STL, ASCII");
}

std::vector<std::string_view> StlFormat::extensions() const
{
    return {"stl"};
}

bool StlFormat::recognises(std::string_view head, std::uint64_t fileSize) const
{
    return looksLikeAsciiStl(head) || looksLikeBinaryStl(head, fileSize);
}

std::vector<LoadedPart> StlFormat::read(InputFile& input, std::string const& defaultName) const
{
    std::array<char, recognitionBytes> head;
    std::size_t const count = input.peekHead(std::as_writable_bytes(std::span(head)));
    bool const isAscii = looksLikeAsciiStl(withoutByteOrderMark({head.data(), count}));
    std::vector<LoadedPart> parts;
    parts.push_back({defaultName, isAscii ? readAsciiStl(input) : readBinaryStl(input)});
    return parts;
}

void StlFormat::write(OutputFile& output, std::span<NamedMesh const> parts,
                      Progress const& progress) const
{
    if (m_written == Encoding::Binary)
        writeBinaryStl(output, parts, progress);
    else
        writeAsciiStl(output, parts, progress);
}

}  // namespace Formats
