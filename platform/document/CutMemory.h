// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/MeshDocumentObject.h"

#include <vector>

/// What is remembered of the cuts that have made a part: a view draws the pieces apart along them,
/// and a piece can be laid on the face that a plane cut made.
///
/// It goes with the part's mesh: copies of a part have it too, undo brings it back, a part follows
/// it wherever it is moved, and another mesh, such as one that was read from a file, has none.
///
/// thread  the user interface thread
///
/// See docs/decisions/0018-memory-beside-meshes.md.
namespace Mesh {

/// A plane and the side of it on which a piece lies: normal . x <= distance.
struct CutFace
{
    /// Unit vector out of the piece.
    UVector3<double> normal;
    double distance = 0;
};

struct CutMemory
{
    /// The same for all pieces of what was once one part; 0 for a part that no cut has made.
    unsigned family = 0;
    /// In the order of the cuts. A cut's face need not be there any more: a later cut may have
    /// taken it to another piece.
    std::vector<CutFace> faces;
    /// Of the cuts by drawn shapes, in their order: unit vectors along which the piece comes clear of
    /// its counterpart.
    std::vector<UVector3<double>> ways;
};

/// As the part is placed, in world millimetres.
CutMemory cutMemoryOf(DocumentObject const& part);

/// Two pieces are what a plane has made of a part, which has its mesh still. Connectors may reach
/// beyond the plane.
///
/// plane        of either side
/// first, other in any order
void rememberCut(DocumentObject const& source, CutFace const& plane, DocumentObject const& first,
                 DocumentObject const& other);

/// Two pieces are what a prism has made of a part, which has its mesh still. The inner one comes out
/// of the other to the side where less stands in its way.
///
/// along  of the prism's edges, towards where it was drawn from; of any length but 0
void rememberShapeCut(DocumentObject const& source, UVector3<double> const& along,
                      DocumentObject const& inner, DocumentObject const& outer);

/// Pieces are what horizontal planes have made of a part, which has its mesh still.
///
/// heights  from below, in world millimetres
/// pieces   one more than heights, from below
void rememberSlices(DocumentObject const& source, std::vector<double> const& heights,
                    std::vector<DocumentObject*> const& pieces);

/// A part has another mesh of the same shape, seen through the same matrix.
///
/// before  the kernel that it had
void rememberAs(MeshKernel const& before, MeshKernel const& after);

// For keeping it beyond the document: in the coordinates of the kernel's records, which do not change
// with the placement.

CutMemory cutMemoryInRecords(MeshKernel const& kernel);
/// A family of 0 gives nothing.
void setCutMemoryInRecords(MeshKernel const& kernel, CutMemory memory);
/// One that no part has yet.
unsigned newCutFamily();

}  // namespace Mesh
