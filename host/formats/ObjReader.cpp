// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ObjReader.h"

#include "host/formats/FileError.h"
#include "host/formats/TextTokens.h"

#include <cstdlib>

namespace Formats {
namespace {

/// Typical text per triangle, half a position included; only a hint for the first allocation.
constexpr std::uint64_t bytesPerFace = 64;

}  // namespace

ObjReader::ObjReader(InputFile& input)
    : m_path(input.path()),
      m_lines(input),
      m_builder(input.size() / bytesPerFace, input.size() / bytesPerFace / 2),
      m_splitter(m_builder),
      m_positions(m_builder.points())
{
    m_builder.allowUnusedPoints();
}

std::unique_ptr<MeshKernel> ObjReader::read()
{
    std::string_view statement;
    while (nextStatement(statement)) {
        std::string_view const keyword = takeWord(statement);
        if (keyword == "v")
            readPosition(statement);
        else if (keyword == "f")
            readFace(statement);
    }
    if (m_builder.isEmpty())
        throw error(
            m_positions.size() == 0
                ? FileError::tr("the file ends without a position or a face; a mesh was expected.")
                : FileError::tr("the file ends without a face of three different "
                                "corners; a mesh was expected."));
    return m_builder.finish();
}

bool ObjReader::nextStatement(std::string_view& statement)
{
    if (!m_lines.next(statement))
        return false;
    if (!statement.ends_with('\\'))
        return true;
    // A backslash joins the next line to this one.
    m_continued.clear();
    bool isContinued = true;
    while (isContinued) {
        isContinued = statement.ends_with('\\');
        m_continued += statement.substr(0, statement.size() - isContinued);
        m_continued += ' ';
        isContinued = isContinued && m_lines.next(statement);
    }
    statement = m_continued;
    return true;
}

void ObjReader::readPosition(std::string_view rest)
{
    UPoint3<float> point;
    for (int i = 0; i < 3; ++i) {
        std::string_view const word = takeWord(rest);
        auto const value = coordinateFrom(word);
        if (!value)
            throw error(FileError::tr("%1 was expected, but there is %2.")
                            .arg(FileError::tr("a coordinate"), quoted(word)));
        point[i] = *value;
    }
    if (!m_positions.add(point))
        throw error(
            FileError::tr("a coordinate is not a finite number in the range of single precision."));
}

void ObjReader::readFace(std::string_view rest)
{
    m_corners.clear();
    for (;;) {
        std::string_view const word = takeWord(rest);
        if (word.empty() || word.starts_with('#'))
            break;
        m_corners.push_back(cornerFrom(word));
    }
    if (m_corners.size() < 3)
        throw error(FileError::tr("a face of three or more corners was expected, but there are %1.")
                        .arg(m_corners.size()));
    m_splitter.add(m_corners);
}

UVertex<float>* ObjReader::cornerFrom(std::string_view word)
{
    // Only the first of "position/texture/normal" counts.
    auto const index = numberFrom<std::int64_t>(word.substr(0, word.find('/')));
    if (!index)
        throw error(FileError::tr("%1 was expected, but there is %2.")
                        .arg(FileError::tr("a corner such as 7 or 7/1/3"), quoted(word)));
    auto const count = std::int64_t(m_positions.size());
    std::int64_t const place = *index < 0 ? count + *index : *index - 1;
    if (*index == 0 || place < 0 || place >= count)
        throw error(
            FileError::tr("the face refers to position %1, but there are %2 positions above it.")
                .arg(*index)
                .arg(count));
    return m_positions.at(std::size_t(place));
}

FileError ObjReader::error(QString const& problem) const
{
    return FileError::atLine(m_path, m_lines.lineNumber(), problem);
}

}  // namespace Formats
