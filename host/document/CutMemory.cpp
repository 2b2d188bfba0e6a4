// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/document/CutMemory.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <unordered_map>

namespace Mesh {

namespace {

using Vector = UVector3<double>;
using Matrix = UMatrix4<float>;
using MeshPointer = std::shared_ptr<UMesh<float> const>;

/// In the coordinates of the records.
struct Entry
{
    std::weak_ptr<UMesh<float> const> mesh;
    CutMemory memory;
};

std::unordered_map<UMesh<float> const*, Entry>& entries()
{
    static std::unordered_map<UMesh<float> const*, Entry> all;
    return all;
}

CutMemory memoryOf(MeshPointer const& mesh)
{
    auto const place = entries().find(mesh.get());
    // A new mesh may lie where a former one was.
    return place != entries().end() && place->second.mesh.lock() == mesh ? place->second.memory
                                                                         : CutMemory();
}

void setMemory(MeshPointer const& mesh, CutMemory memory)
{
    std::erase_if(entries(), [](auto const& item) { return item.second.mesh.expired(); });
    if (mesh && memory.family != 0)
        entries()[mesh.get()] = {mesh, std::move(memory)};
}

Vector column(Matrix const& matrix, int i)
{
    return {matrix(0, i), matrix(1, i), matrix(2, i)};
}

/// The plane that a placement makes of one of records. Normals go by the cofactors of the matrix,
/// which is the inverse transposed but for a factor.
CutFace placed(CutFace const& face, Matrix const& matrix)
{
    Vector const x = column(matrix, 0), y = column(matrix, 1), z = column(matrix, 2);
    Vector const cofactors =
        (y * z) * face.normal[0] + (z * x) * face.normal[1] + (x * y) * face.normal[2];
    double const determinant = x | (y * z);
    double const length = cofactors.GetLength();
    Vector const normal = cofactors * ((determinant < 0 ? -1 : 1) / length);
    Vector const point = x * (face.normal[0] * face.distance) +
                         y * (face.normal[1] * face.distance) +
                         z * (face.normal[2] * face.distance) + column(matrix, 3);
    return {normal, normal | point};
}

/// The plane of the records that a placement makes this one: the transposed matrix takes planes
/// back.
CutFace inRecords(CutFace const& face, Matrix const& matrix)
{
    Vector normal;
    for (int i = 0; i < 3; ++i)
        normal[i] = column(matrix, i) | face.normal;
    double const length = normal.GetLength();
    return {normal * (1 / length), (face.distance - (face.normal | column(matrix, 3))) / length};
}

/// A way in which a placement takes what moves along this one in the records.
Vector placedWay(Vector const& way, Matrix const& matrix)
{
    Vector const moved =
        column(matrix, 0) * way[0] + column(matrix, 1) * way[1] + column(matrix, 2) * way[2];
    return moved * (1 / moved.GetLength());
}

/// The way in the records that a placement makes this one, by the inverse but for a factor.
Vector wayInRecords(Vector const& way, Matrix const& matrix)
{
    Vector const x = column(matrix, 0), y = column(matrix, 1), z = column(matrix, 2);
    Vector const back((y * z) | way, (z * x) | way, (x * y) | way);
    double const sense = (x | (y * z)) < 0 ? -1 : 1;
    return back * (sense / back.GetLength());
}

struct Range
{
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
};

/// A part's range along a direction, as some thousand of its vertices show it.
Range rangeAlong(MeshKernel const& kernel, Vector const& direction)
{
    constexpr std::size_t samples = 4096;
    auto const mesh = kernel.readMesh();
    Matrix const& matrix = kernel.getMatrix();
    Range range;
    std::size_t const step = mesh->vertices.size() / samples + 1;
    for (std::size_t i = 0; i < mesh->vertices.size(); i += step) {
        UPoint3<float> const p = matrix * mesh->vertices[i]->cP();
        double const along = direction | Vector(p.X(), p.Y(), p.Z());
        range.low = std::min(range.low, along);
        range.high = std::max(range.high, along);
    }
    return range;
}

double middleAlong(MeshKernel const& kernel, Vector const& direction)
{
    Range const range = rangeAlong(kernel, direction);
    return (range.low + range.high) / 2;
}

/// The direction or its opposite: that in which the inner piece has less of the outer one before it.
Vector wayOut(MeshKernel const& inner, MeshKernel const& outer, Vector const& direction)
{
    // Of the outer piece's height: what is as near to one end as to the other goes forward.
    constexpr double alike = 0.01;
    Range const within = rangeAlong(inner, direction), around = rangeAlong(outer, direction);
    double const before = around.high - within.high, behind = within.low - around.low;
    return behind + alike * (around.high - around.low) < before ? direction * -1 : direction;
}

CutMemory placedMemory(MeshKernel const& kernel)
{
    CutMemory memory = memoryOf(kernel.readMesh());
    for (CutFace& face : memory.faces)
        face = placed(face, kernel.getMatrix());
    for (Vector& way : memory.ways)
        way = placedWay(way, kernel.getMatrix());
    return memory;
}

/// What its pieces inherit.
CutMemory familyOf(DocumentObject const& source)
{
    CutMemory memory = cutMemoryOf(source);
    if (memory.family == 0)
        memory.family = newCutFamily();
    return memory;
}

void remember(DocumentObject const& piece, CutMemory memory)
{
    MeshKernel const& kernel = *piece.meshProperty->getMesh();
    for (CutFace& each : memory.faces)
        each = inRecords(each, kernel.getMatrix());
    for (Vector& way : memory.ways)
        way = wayInRecords(way, kernel.getMatrix());
    setMemory(kernel.readMesh(), std::move(memory));
}

bool hasMesh(DocumentObject const& part)
{
    MeshKernel const* const kernel = part.meshProperty->getMesh();
    return kernel && kernel->readMesh();
}

}  // namespace

CutMemory cutMemoryOf(DocumentObject const& part)
{
    return hasMesh(part) ? placedMemory(*part.meshProperty->getMesh()) : CutMemory();
}

void rememberCut(DocumentObject const& source, CutFace const& plane, DocumentObject const& first,
                 DocumentObject const& other)
{
    if (!hasMesh(first) || !hasMesh(other))
        return;
    bool const isFirstAbove = middleAlong(*first.meshProperty->getMesh(), plane.normal) >
                              middleAlong(*other.meshProperty->getMesh(), plane.normal);
    CutFace const back{plane.normal * -1, -plane.distance};
    CutMemory ofFirst = familyOf(source), ofOther = ofFirst;
    ofFirst.faces.push_back(isFirstAbove ? back : plane);
    ofOther.faces.push_back(isFirstAbove ? plane : back);
    remember(first, std::move(ofFirst));
    remember(other, std::move(ofOther));
}

void rememberShapeCut(DocumentObject const& source, UVector3<double> const& along,
                      DocumentObject const& inner, DocumentObject const& outer)
{
    if (!hasMesh(inner) || !hasMesh(outer))
        return;
    Vector const way = wayOut(*inner.meshProperty->getMesh(), *outer.meshProperty->getMesh(),
                              along * (1 / along.GetLength()));
    CutMemory ofInner = familyOf(source), ofOuter = ofInner;
    ofInner.ways.push_back(way);
    ofOuter.ways.push_back(way * -1);
    remember(inner, std::move(ofInner));
    remember(outer, std::move(ofOuter));
}

void rememberSlices(DocumentObject const& source, std::vector<double> const& heights,
                    std::vector<DocumentObject*> const& pieces)
{
    CutMemory const inherited = familyOf(source);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (!hasMesh(*pieces[i]))
            continue;
        CutMemory memory = inherited;
        for (std::size_t j = 0; j < heights.size(); ++j)
            memory.faces.push_back(j < i ? CutFace{{0, 0, -1}, -heights[j]}
                                         : CutFace{{0, 0, 1}, heights[j]});
        remember(*pieces[i], std::move(memory));
    }
}

void rememberAs(MeshKernel const& before, MeshKernel const& after)
{
    if (before.readMesh() && after.readMesh())
        setMemory(after.readMesh(), memoryOf(before.readMesh()));
}

CutMemory cutMemoryInRecords(MeshKernel const& kernel)
{
    return kernel.readMesh() ? memoryOf(kernel.readMesh()) : CutMemory();
}

void setCutMemoryInRecords(MeshKernel const& kernel, CutMemory memory)
{
    setMemory(kernel.readMesh(), std::move(memory));
}

unsigned newCutFamily()
{
    static unsigned lastFamily = 0;
    return ++lastFamily;
}

}  // namespace Mesh
