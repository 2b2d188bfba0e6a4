// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/FileError.h"
#include "host/formats/LineReader.h"
#include "host/formats/MeshBuilder.h"
#include "host/formats/NumberedPoints.h"
#include "host/formats/PolygonSplitter.h"

#include <string>
#include <vector>

namespace Formats {

/// Reads the positions ("v") and faces ("f") of an OBJ file into one mesh. A face may refer to the
/// positions above it, from 1 or, negative, from the latest one.
class ObjReader
{
public:
    explicit ObjReader(InputFile& input);

    /// Throws FileError with the line.
    std::unique_ptr<MeshKernel> read();

private:
    bool nextStatement(std::string_view& statement);
    void readPosition(std::string_view rest);
    void readFace(std::string_view rest);
    UVertex<float>* cornerFrom(std::string_view word);
    FileError error(QString const& problem) const;

    std::filesystem::path const& m_path;
    LineReader m_lines;
    MeshBuilder m_builder;
    PolygonSplitter m_splitter;
    NumberedPoints m_positions;
    std::vector<UVertex<float>*> m_corners;
    std::string m_continued;
};

}  // namespace Formats
