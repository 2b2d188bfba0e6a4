// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PlyHeader.h"

#include "host/formats/FileError.h"
#include "host/formats/TextTokens.h"

#include <array>

namespace Formats {
namespace {

struct TypeName
{
    std::string_view name;
    PlyType type;
};

constexpr std::array<TypeName, 16> typeNames = {{{"char", PlyType::Int8},
                                                 {"int8", PlyType::Int8},
                                                 {"uchar", PlyType::UInt8},
                                                 {"uint8", PlyType::UInt8},
                                                 {"short", PlyType::Int16},
                                                 {"int16", PlyType::Int16},
                                                 {"ushort", PlyType::UInt16},
                                                 {"uint16", PlyType::UInt16},
                                                 {"int", PlyType::Int32},
                                                 {"int32", PlyType::Int32},
                                                 {"uint", PlyType::UInt32},
                                                 {"uint32", PlyType::UInt32},
                                                 {"float", PlyType::Float},
                                                 {"float32", PlyType::Float},
                                                 {"double", PlyType::Double},
                                                 {"float64", PlyType::Double}}};

class HeaderParser
{
public:
    HeaderParser(InputFile const& input, LineReader& lines) : m_input(input), m_lines(lines) {}

    PlyHeader parse()
    {
        if (nextLine() != "ply")
            throw error(FileError::tr("'ply' was expected."));
        for (;;) {
            std::string_view line = nextLine();
            std::string_view const keyword = takeWord(line);
            if (keyword == "end_header")
                break;
            if (keyword == "format")
                parseFormat(line);
            else if (keyword == "element")
                parseElement(line);
            else if (keyword == "property")
                parseProperty(line);
            else if (!keyword.empty() && keyword != "comment" && keyword != "obj_info")
                throw error(
                    FileError::tr("%1 was expected, but there is %2.")
                        .arg(FileError::tr("a header line or 'end_header'"), quoted(keyword)));
        }
        if (!m_hasFormat)
            throw error(FileError::tr("the header ends without a 'format' line."));
        return std::move(m_header);
    }

private:
    std::string_view nextLine()
    {
        std::string_view line;
        if (!m_lines.next(line))
            throw error(FileError::tr("the file ends here, where %1 was expected; it is truncated.")
                            .arg("'end_header'"));
        return line;
    }

    void parseFormat(std::string_view line)
    {
        std::string_view const encoding = takeWord(line);
        if (encoding == "ascii")
            m_header.encoding = PlyEncoding::Ascii;
        else if (encoding == "binary_little_endian")
            m_header.encoding = PlyEncoding::LittleEndian;
        else if (encoding == "binary_big_endian")
            m_header.encoding = PlyEncoding::BigEndian;
        else
            throw error(FileError::tr("%1 was expected, but there is %2.")
                            .arg(FileError::tr("ascii, binary_little_endian or binary_big_endian"),
                                 quoted(encoding)));
        m_hasFormat = true;
    }

    void parseElement(std::string_view line)
    {
        PlyElement element;
        element.name = takeWord(line);
        std::string_view const count = takeWord(line);
        auto const number = numberFrom<std::uint32_t>(count);
        if (!number)
            throw error(FileError::tr("a number of '%1' elements was expected, but there is %2.")
                            .arg(QString::fromStdString(element.name), quoted(count)));
        element.count = *number;
        m_header.elements.push_back(std::move(element));
    }

    void parseProperty(std::string_view line)
    {
        if (m_header.elements.empty())
            throw error(
                FileError::tr("an 'element' line was expected before the first 'property'."));
        PlyProperty property;
        std::string_view word = takeWord(line);
        if (word == "list") {
            property.isList = true;
            property.countType = typeFrom(takeWord(line));
            word = takeWord(line);
        }
        property.type = typeFrom(word);
        property.name = takeWord(line);
        m_header.elements.back().properties.push_back(std::move(property));
    }

    PlyType typeFrom(std::string_view word) const
    {
        for (auto const& [name, type] : typeNames)
            if (name == word)
                return type;
        throw error(FileError::tr("%1 was expected, but there is %2.")
                        .arg(FileError::tr("a type such as float or uchar"), quoted(word)));
    }

    FileError error(QString const& problem) const
    {
        return FileError::atLine(m_input.path(), m_lines.lineNumber(), problem);
    }

    InputFile const& m_input;
    LineReader& m_lines;
    PlyHeader m_header;
    bool m_hasFormat = false;
};

}  // namespace

std::size_t sizeOf(PlyType type)
{
    switch (type) {
        case PlyType::Int8:
        case PlyType::UInt8:
            return 1;
        case PlyType::Int16:
        case PlyType::UInt16:
            return 2;
        case PlyType::Double:
            return 8;
        default:
            return 4;
    }
}

std::uint64_t PlyElement::smallestSize() const
{
    std::uint64_t size = 0;
    for (PlyProperty const& property : properties)
        size += sizeOf(property.isList ? property.countType : property.type);
    return size;
}

int axisOf(PlyProperty const& property)
{
    if (property.isList || property.name.size() != 1)
        return -1;
    int const axis = property.name[0] - 'x';
    return axis >= 0 && axis < 3 ? axis : -1;
}

bool holdsCorners(PlyProperty const& property)
{
    bool const isWhole = property.type != PlyType::Float && property.type != PlyType::Double;
    return property.isList && isWhole &&
           (property.name == "vertex_indices" || property.name == "vertex_index");
}

PlyHeader readPlyHeader(InputFile const& input, LineReader& lines)
{
    return HeaderParser(input, lines).parse();
}

}  // namespace Formats
