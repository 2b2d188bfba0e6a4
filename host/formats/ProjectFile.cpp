// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ProjectFile.h"

#include "host/formats/ProjectXml.h"
#include "host/formats/ThreeMfReader.h"
#include "host/formats/ThreeMfWriter.h"
#include "host/formats/ZipDirectory.h"

#include <algorithm>
#include <new>

namespace Formats {

void writeProject(std::filesystem::path const& path, std::span<ProjectObject const> objects,
                  Progress const& progress, Overwrite overwrite)
{
    try {
        OutputFile output(path, overwrite);
        ThreeMfWriter(output, progress).writeProject(objects);
        if (progress)
            progress(100);
        output.commit();
    } catch (std::bad_alloc const&) {
        throw FileError(path, "writing it needs more memory than is free; close other programs.");
    }
}

std::vector<ProjectObject> readProject(std::filesystem::path const& path, Progress const& progress)
{
    InputFile input(path, progress);
    try {
        auto objects = ThreeMfReader(input, path.stem().string(), input.progress()).readProject();
        if (progress)
            progress(100);
        return objects;
    } catch (std::bad_alloc const&) {
        throw FileError(path,
                        "it needs more memory than is free; close other programs to open it.");
    }
}

bool isProjectFile(std::filesystem::path const& path)
{
    try {
        InputFile input(path, {});
        auto const names = zipEntryNames(input);
        return std::ranges::find(names, projectEntryName) != names.end();
    } catch (FileError const&) {
        return false;
    }
}

}  // namespace Formats
