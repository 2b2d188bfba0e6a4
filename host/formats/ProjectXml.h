// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/ProjectFile.h"

namespace Formats {

/// The attachment of a project file, as it stands in the package.
inline constexpr char projectEntryName[] = "Metadata/Orbe_project.xml";
inline constexpr char modelEntryName[] = "3D/3dmodel.model";
inline constexpr char projectRelationship[] = "urn:orbe:relationships:project";

/// A project's object, with the identifier of the build item that holds its geometry; empty for a
/// group, for a view and for a part without triangles.
struct ProjectEntry
{
    ProjectObject object;
    std::string item;
};

/// The objects of a project, after the kernels have been found for the items: groups, views, parts with a
/// kernel, and the parts that have no triangles, which get an empty one.
std::vector<ProjectObject> completeObjects(std::vector<ProjectEntry> entries);

/// Text for an XML attribute in quotes. Characters that XML has no way to write are left out;
/// what is not UTF-8 becomes the replacement character.
std::string xmlEscaped(std::string const& text);

/// The attachment's text. Kernels are not part of it.
std::string projectXml(std::span<ProjectEntry const> entries);

/// Reads it back; elements and attributes that are not known are passed over. Throws FileError,
/// which names `path`.
std::vector<ProjectEntry> parseProjectXml(std::string const& text,
                                          std::filesystem::path const& path);

}  // namespace Formats
