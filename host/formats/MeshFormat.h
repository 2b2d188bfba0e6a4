// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/FileError.h"
#include "host/formats/InputFile.h"
#include "host/formats/OutputFile.h"
#include "platform/mesh/MeshKernel.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Formats {

/// What a file holds for one part of the document.
struct LoadedPart
{
    std::string name;
    std::unique_ptr<MeshKernel> kernel;
    /// As 0xRRGGBBAA; 0 if the file gives none.
    unsigned color = 0;
    /// The file says that the part carries support structures.
    bool isSupport = false;
};

/// A part to write; the kernel is borrowed, and its matrix is applied while writing.
struct NamedMesh
{
    std::string name;
    MeshKernel const* kernel = nullptr;
    /// As 0xRRGGBBAA, for formats that hold one; 0 for none.
    unsigned color = 0;
    /// For formats that say so.
    bool isSupport = false;
};

/// One file format. Formats have no state; all operations may be called on any thread.
class MeshFormat
{
public:
    virtual ~MeshFormat() = default;

    /// The name in the registry and on the command line, such as "stl".
    virtual std::string_view name() const = 0;
    /// For a person to read, such as "STL, binary"; translated in the context "Formats".
    virtual std::string_view title() const = 0;
    /// Lower case, without the dot. The first one is what new files get.
    virtual std::vector<std::string_view> extensions() const = 0;

    /// Whether a file is of this format, by its content alone.
    ///
    /// head      the file's first bytes, at most recognitionBytes
    /// fileSize  of the whole file
    virtual bool recognises(std::string_view head, std::uint64_t fileSize) const = 0;

    /// Whether files say what unit their coordinates are in, so that millimetres are read.
    virtual bool namesUnit() const { return false; }

    /// Reads all parts. `defaultName` is for parts that have no name of their own. Throws
    /// FileError; a file without a triangle is one. The input tells its progress itself.
    virtual std::vector<LoadedPart> read(InputFile& input,
                                         std::string const& defaultName) const = 0;

    /// Writes the parts, in a format of single meshes one after the other into the one mesh. The
    /// same parts give the same bytes. Every part has triangles.
    virtual void write(OutputFile& output, std::span<NamedMesh const> parts,
                       Progress const& progress) const = 0;

    static constexpr std::size_t recognitionBytes = 2048;
};

}  // namespace Formats
