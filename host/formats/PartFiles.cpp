// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PartFiles.h"

#include <new>

namespace Formats {

std::vector<LoadedPart> readParts(std::filesystem::path const& path,
                                  std::function<void(int)> const& progress)
{
    InputFile input(path, progress);
    try {
        auto parts = FormatRegistry::instance().forContent(input).read(input, path.stem().string());
        if (progress)
            progress(100);
        return parts;
    } catch (std::bad_alloc const&) {
        throw FileError(path, FileError::tr("its mesh needs more memory than is free; close "
                                            "other programs or reduce the mesh first."));
    }
}

void writePart(std::filesystem::path const& path, std::string const& name, MeshKernel const& kernel,
               MeshFormat const& format, std::function<void(int)> const& progress,
               Overwrite overwrite)
{
    NamedMesh const part{name, &kernel};
    writeParts(path, {&part, 1}, format, progress, overwrite);
}

void writeParts(std::filesystem::path const& path, std::span<NamedMesh const> parts,
                MeshFormat const& format, std::function<void(int)> const& progress,
                Overwrite overwrite)
{
    for (NamedMesh const& part : parts)
        if (part.kernel->readMesh()->triangles.empty())
            throw FileError(path, FileError::tr("the part '%1' has no triangles to write.")
                                      .arg(QString::fromStdString(part.name)));
    if (parts.empty())
        throw FileError(path, FileError::tr("there is no part to write."));
    try {
        OutputFile output(path, overwrite);
        format.write(output, parts, progress);
        if (progress)
            progress(100);
        output.commit();
    } catch (std::bad_alloc const&) {
        throw FileError(
            path,
            FileError::tr("writing it needs more memory than is free; close other programs."));
    }
}

}  // namespace Formats
