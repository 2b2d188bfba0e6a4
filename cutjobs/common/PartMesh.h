// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"

#include <vector>

class MeshKernel;
namespace Mesh {
class DocumentObject;
}

/// The kernel of a part, or null if there is no part or it has no mesh. It stays the part's.
MeshKernel* kernelOfPart(Mesh::DocumentObject const* part);

/// The box of all parts that have a mesh; null if none has.
UBox3<float> boxOfParts(std::vector<Mesh::DocumentObject*> const& parts);
