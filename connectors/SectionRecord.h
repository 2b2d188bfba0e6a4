// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <cstddef>
#include <map>
#include <vector>

class MeshKernel;
namespace Mesh {
class DocumentObject;
}

/// What a run knows of the section of a part.
struct SectionRecord
{
    /// Square millimetres.
    double area = 0;
    std::size_t contours = 0;
    /// Where pins or holes stand.
    std::vector<UPoint3<float>> positions;
};

using SectionRecords = std::map<Mesh::DocumentObject*, SectionRecord>;

/// The area of a section face.
double sectionArea(MeshKernel const& cap);
