// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/LightPackage.h"

#include "host/formats/ProjectXml.h"
#include "host/formats/ZipWriter.h"

#include <algorithm>
#include <set>

namespace Formats {
namespace {

constexpr char rootRelationships[] = "_rels/.rels";
/// Pictures and the like beside the model; with more of them the library reads the file itself.
constexpr std::uint64_t mostOtherBytes = 1 << 28;
constexpr std::uint64_t mostRelationshipBytes = 1 << 20;

bool isPlain(ZipReader const& package)
{
    std::set<std::string_view> names;
    std::uint64_t bytes = 0;
    for (ZipReader::Entry const& entry : package.entries()) {
        if (!names.insert(entry.name).second || !(entry.isDeflated() || entry.isStored()))
            return false;
        if (entry.name != modelEntryName)
            bytes += std::min(entry.size, mostOtherBytes);
    }
    return bytes < mostOtherBytes;
}

/// Whether the package's model is the one that nearly all programs have it in.
bool hasUsualModel(InputFile& input, ZipReader const& package)
{
    ZipReader::Entry const* const relationships = package.find(rootRelationships);
    if (!relationships || relationships->size > mostRelationshipBytes ||
        !package.find(modelEntryName))
        return false;
    std::string const text = ZipEntryStream(input, *relationships).readAll();
    return text.find('"' + ('/' + std::string(modelEntryName)) + '"') != text.npos;
}

}  // namespace

std::optional<LightPackage> readLightPackage(InputFile& input)
{
    ZipReader const package(input);
    if (!isPlain(package) || !hasUsualModel(input, package))
        return {};
    auto model = takeMeshesOut(input, *package.find(modelEntryName));
    if (!model)
        return {};
    LightPackage light;
    light.model = std::move(*model);
    ZipWriter writer([&](std::string_view bytes) { light.bytes += bytes; });
    for (ZipReader::Entry const& entry : package.entries())
        if (!entry.name.ends_with('/'))
            writer.addEntry(entry.name, entry.name == modelEntryName
                                            ? light.model.text
                                            : ZipEntryStream(input, entry).readAll());
    writer.finish();
    light.model.text = {};
    return light;
}

}  // namespace Formats
