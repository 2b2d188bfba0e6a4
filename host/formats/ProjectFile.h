// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"

#include <array>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace Formats {

/// A camera, in world millimetres.
struct ProjectCamera
{
    /// Unit vectors towards the eye and up on the screen.
    std::array<double, 3> direction{0, -1, 0};
    std::array<double, 3> up{0, 0, 1};
    /// What is in the middle of the picture.
    std::array<double, 3> middle{};
    /// Of the picture.
    double height = 200;
    bool isPerspective = false;

    bool operator==(ProjectCamera const&) const = default;
};

/// What a project file holds for one object of a document: a part, or a group of parts; or for a
/// view that was kept by its name.
struct ProjectObject
{
    enum class Kind
    {
        Part,
        Group,
        View
    };

    Kind kind = Kind::Part;
    std::string uuid;
    /// Of the object that this one was made from; empty if there is none.
    std::string parentUuid;
    /// Of the group that the part is in; empty if it is in none.
    std::string groupUuid;
    std::string name;
    bool isVisible = true;
    bool isSemiVisible = false;
    /// As 0xRRGGBBAA; 0 for none.
    unsigned color = 0;
    /// A part that carries support structures.
    bool isSupport = false;
    /// Of a part that cuts have made: which parts of the project come from one, counted from 1, and the
    /// planes of the cuts in the coordinates of its records, as a unit normal out of the part and the
    /// distance along it. 0 for others.
    unsigned cutFamily = 0;
    std::vector<std::array<double, 4>> cutPlanes;
    /// The ways out of such a part, in the same coordinates: unit vectors.
    std::vector<std::array<double, 3>> cutWays;
    /// Of a part: its records and its placement. Null for others.
    std::shared_ptr<MeshKernel> kernel;
    /// Of a view.
    ProjectCamera camera;
};

/// Writes a project: a 3MF package in which every part is an object of its own, with its colour as
/// a base material and its placement as the transform of its build item, so that other programs
/// find the parts where they stand. What 3MF has no place for (groups, views, visibility, identifiers,
/// the planes and ways of cuts, the order of all objects) is an attachment that other programs pass over. Coordinates and
/// placements come back bit by bit. The file appears under its name when it is complete, or not at
/// all. The same objects give the same bytes.
///
/// objects   in the document's order; kernels are only read
/// progress  percentages; may throw, and what it throws is let pass
/// throws    FileError
/// thread    any
void writeProject(std::filesystem::path const& path, std::span<ProjectObject const> objects,
                  Progress const& progress, Overwrite overwrite);

/// Reads a project. A build item that another program has put in comes as a part, after the others;
/// a part that another program has taken out is left out. A 3MF file without the attachment is read
/// as parts alone.
///
/// progress  percentages; may throw, and what it throws is let pass
/// throws    FileError
/// thread    any
std::vector<ProjectObject> readProject(std::filesystem::path const& path,
                                       Progress const& progress = {});

/// Whether a file is a project that writeProject wrote, told from the directory of the package.
/// False for what cannot be read.
///
/// thread  any
bool isProjectFile(std::filesystem::path const& path);

}  // namespace Formats
