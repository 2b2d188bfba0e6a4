// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>
#include <vector>

class MeshKernel;
namespace Mesh {
class DocumentObject;
}

/// Source part to its pieces, in the order in which they were made. Only pieces with triangles are
/// stored, and a part without such a piece has no key.
using CutResultMap = std::map<Mesh::DocumentObject*, std::vector<std::shared_ptr<MeshKernel>>>;

/// Appends a piece to those of its part if it has triangles. Every piece that a worker hands out
/// passes here.
///
/// throws  Mell::Exception that names the place if the part is closed and the piece is not
void storePiece(CutResultMap& result, Mesh::DocumentObject* part,
                std::shared_ptr<MeshKernel> const& piece);
