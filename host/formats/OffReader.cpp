// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/OffReader.h"

#include "host/formats/MemoryNeed.h"
#include "host/formats/TextTokens.h"

#include <algorithm>

namespace Formats {
namespace {

std::string_view withoutComment(std::string_view line)
{
    return line.substr(0, line.find('#'));
}

bool isEmptyLine(std::string_view line)
{
    return std::ranges::all_of(line, isBlank);
}

/// Texture coordinates, colours and normals may precede the keyword in this order.
std::string_view withoutExtras(std::string_view word)
{
    for (std::string_view const extra : {"ST", "C", "N"})
        if (word.starts_with(extra))
            word.remove_prefix(extra.size());
    return word;
}

}  // namespace

OffReader::OffReader(InputFile& input) : m_input(input), m_lines(input) {}

bool OffReader::isKeyword(std::string_view word)
{
    return withoutExtras(word) == "OFF";
}

std::unique_ptr<MeshKernel> OffReader::read()
{
    std::string_view line = countsLine();
    std::uint64_t const vertices = countFrom(takeWord(line));
    std::uint64_t const faces = countFrom(takeWord(line));
    if (vertices == 0 || faces == 0)
        throw error(
            FileError::tr("the header announces no vertices or no faces; a mesh was expected."));
    // "0 0 0" for a vertex and "3 0 1 2" for a face, each with the end of its line.
    constexpr std::uint64_t leastVertex = 6, leastFace = 8;
    std::uint64_t const present = m_input.size() - m_lines.offset() + 1;
    if (vertices > present / leastVertex || faces > present / leastFace)
        throw error(
            FileError::tr(
                "it announces %1 vertices and %2 faces, for which the file is too short; it is "
                "truncated.")
                .arg(vertices)
                .arg(faces));
    requireMemoryFor(std::max(faces, vertices / 2), m_input.path());
    m_builder = std::make_unique<MeshBuilder>(faces, vertices);
    m_builder->allowUnusedPoints();
    m_vertices = std::make_unique<NumberedPoints>(m_builder->points());
    m_splitter = std::make_unique<PolygonSplitter>(*m_builder);
    m_vertices->reserve(vertices);
    for (std::uint64_t i = 0; i < vertices; ++i)
        readVertex(nextLine());
    for (std::uint64_t i = 0; i < faces; ++i)
        readFace(nextLine());
    if (m_builder->isEmpty())
        throw error(FileError::tr("no face has three different corners; a mesh was expected."));
    m_vertices.reset();
    return m_builder->finish();
}

/// The next line that has anything but a comment on it.
std::string_view OffReader::nextLine()
{
    std::string_view line;
    while (m_lines.next(line)) {
        line = withoutComment(line);
        if (!isEmptyLine(line))
            return line;
    }
    throw error(
        FileError::tr("the file ends before all of its vertices and faces; it is truncated."));
}

/// The numbers may stand behind the keyword or below it.
std::string_view OffReader::countsLine()
{
    std::string_view line = withoutByteOrderMark(nextLine());
    std::string_view rest = line;
    std::string_view const word = takeWord(rest);
    if (numberFrom<std::uint64_t>(word))
        return line;
    if (!isKeyword(word))
        throw error(FileError::tr("%1 was expected, but there is %2.").arg("OFF", quoted(word)));
    std::string_view below = rest;
    if (takeWord(below) == "BINARY")
        throw error(FileError::tr("it is binary; only OFF files that are text can be read."));
    return isEmptyLine(rest) ? nextLine() : rest;
}

std::uint64_t OffReader::countFrom(std::string_view word) const
{
    auto const count = numberFrom<std::uint64_t>(word);
    if (!count)
        throw error(FileError::tr("%1 was expected, but there is %2.")
                        .arg(FileError::tr("a number of vertices or faces"), quoted(word)));
    return *count;
}

void OffReader::readVertex(std::string_view line)
{
    UPoint3<float> point;
    for (int i = 0; i < 3; ++i) {
        std::string_view const word = takeWord(line);
        auto const value = coordinateFrom(word);
        if (!value)
            throw error(FileError::tr("%1 was expected, but there is %2.")
                            .arg(FileError::tr("a coordinate"), quoted(word)));
        point[i] = *value;
    }
    if (!m_vertices->add(point))
        throw error(
            FileError::tr("a coordinate is not a finite number in the range of single precision."));
}

/// What follows the corners is a colour.
void OffReader::readFace(std::string_view line)
{
    std::uint64_t const corners = countFrom(takeWord(line));
    if (corners < 3)
        throw error(FileError::tr("a face of three or more corners was expected, but there are %1.")
                        .arg(corners));
    m_corners.clear();
    for (std::uint64_t i = 0; i < corners; ++i)
        m_corners.push_back(cornerFrom(takeWord(line)));
    m_splitter->add(m_corners);
}

UVertex<float>* OffReader::cornerFrom(std::string_view word)
{
    auto const index = numberFrom<std::int64_t>(word);
    if (!index)
        throw error(FileError::tr("%1 was expected, but there is %2.")
                        .arg(FileError::tr("the number of a vertex"), quoted(word)));
    if (*index < 0 || *index >= std::int64_t(m_vertices->size()))
        throw error(FileError::tr(
                        "the face refers to vertex %1, but there are %2 vertices, counted from 0.")
                        .arg(*index)
                        .arg(m_vertices->size()));
    return m_vertices->at(std::size_t(*index));
}

FileError OffReader::error(QString const& problem) const
{
    return FileError::atLine(m_input.path(), m_lines.lineNumber(), problem);
}

}  // namespace Formats
