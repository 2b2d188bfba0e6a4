// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"
#include "host/formats/MeshSource.h"
#include "host/formats/ProjectXml.h"
#include "host/formats/ZipWriter.h"

#include <map>

namespace Formats {

/// Writes a 3MF package in millimetres: one object and one build item for each part. Numbers are
/// the shortest that read back as the same floats, and the package is deflated while its text is
/// made, so that no copy of the whole text is ever held.
///
/// See docs/decisions/0009-project-files.md.
class ThreeMfWriter
{
public:
    ThreeMfWriter(OutputFile& output, Progress const& progress);

    /// Parts as they are placed. Throws FileError.
    void write(std::span<NamedMesh const> parts);

    /// Parts with their placement beside them, and the attachment that makes the file a project.
    /// Throws FileError.
    void writeProject(std::span<ProjectObject const> objects);

private:
    struct Item
    {
        std::string name;
        MeshKernel const* kernel;
        unsigned color;
        MeshSource::Frame frame;
        bool isSupport = false;
    };

    void writeModel(std::vector<Item> const& items);
    void writeMaterials(std::vector<Item> const& items);
    void writeObject(Item const& item, std::size_t place, StepProgress& steps);
    void writeVertices(Item const& item, MeshSource const& mesh, StepProgress& steps);
    void writeTriangles(MeshSource const& mesh, StepProgress& steps);
    void writeBuild(std::vector<Item> const& items);
    void addNumber(float value);
    void addNumber(std::uint32_t value);
    void flush();

    OutputFile& m_output;
    Progress const& m_progress;
    ZipWriter m_zip;
    std::string m_text;
    /// The colours in use, with their places among the materials.
    std::map<unsigned, std::size_t> m_materials;
};

}  // namespace Formats
