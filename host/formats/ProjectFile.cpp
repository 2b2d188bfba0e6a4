// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ProjectFile.h"

#include "host/formats/OwnModelReader.h"
#include "host/formats/ProjectXml.h"
#include "host/formats/ThreeMfReader.h"
#include "host/formats/ThreeMfWriter.h"
#include "host/formats/ZipReader.h"

#include <new>
#include <optional>
#include <unordered_map>

namespace Formats {
namespace {

/// A list of objects beyond that is meant to do harm.
constexpr std::uint64_t largestList = 1 << 28;

/// The objects of a package that is as we wrote it; nothing if another program has changed it.
std::optional<std::vector<ProjectObject>> readOwnPackage(InputFile& input)
{
    ZipReader const package(input);
    ZipReader::Entry const* const list = package.find(projectEntryName);
    ZipReader::Entry const* const model = package.find(modelEntryName);
    if (!list || !model || !list->isDeflated() || !model->isDeflated())
        return {};
    if (list->size > largestList)
        throw FileError(input.path(), FileError::tr("its list of objects is larger than 256 MiB."));
    auto entries = parseProjectXml(ZipEntryStream(input, *list).readAll(), input.path());
    ZipEntryStream stream(input, *model);
    auto const items = readOwnModel(stream, model->size, input.path());
    if (!items)
        return {};
    std::unordered_map<std::string, ProjectObject*> byItem;
    for (ProjectEntry& entry : entries)
        if (entry.object.kind == ProjectObject::Kind::Part)
            byItem.emplace(entry.item, &entry.object);
    for (OwnModelItem const& item : *items) {
        auto const object = byItem.find(item.identifier);
        if (object == byItem.end() || object->second->kernel)
            return {};
        object->second->kernel = item.kernel;
    }
    return completeObjects(std::move(entries));
}

}  // namespace

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
        throw FileError(
            path,
            FileError::tr("writing it needs more memory than is free; close other programs."));
    }
}

std::vector<ProjectObject> readProject(std::filesystem::path const& path, Progress const& progress)
{
    InputFile input(path, progress);
    try {
        auto objects = readOwnPackage(input);
        if (!objects)
            objects = ThreeMfReader(input, path.stem().string(), input.progress()).readProject();
        if (progress)
            progress(100);
        return std::move(*objects);
    } catch (std::bad_alloc const&) {
        throw FileError(
            path,
            FileError::tr("it needs more memory than is free; close other programs to open it."));
    }
}

bool isProjectFile(std::filesystem::path const& path)
{
    try {
        InputFile input(path, {});
        return ZipReader(input).find(projectEntryName) != nullptr;
    } catch (FileError const&) {
        return false;
    }
}

}  // namespace Formats
