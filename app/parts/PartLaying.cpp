// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/EditStep.h"
#include "app/parts/PartPlacement.h"
#include "host/mesh/FlatFaces.h"
#include "platform/document/CutMemory.h"

#include <QString>

#include <algorithm>
#include <cmath>

// Which way parts lie on the plate.
namespace PartPlacement {

namespace {

using Vector = UVector3<double>;

/// Below it, as a sine, a direction counts as pointing down already: float knows no better.
constexpr double smallestTurn = 1e-6;
/// How far from the plate a part counts as standing on it.
constexpr float onPlateMm = 1e-5f;

/// The turn that takes a unit vector to the one that points down, by the shortest way.
UMatrix4<double> turnDown(Vector const& from)
{
    // The formula of Rodrigues with the axis (from x down) and without its length.
    double const x = from.X(), y = from.Y(), cosine = -from.Z();
    UMatrix4<double> turn;
    if (cosine < -1 + smallestTurn * smallestTurn) {
        turn(1, 1) = turn(2, 2) = -1;
        return turn;
    }
    Vector const axis(-y, x, 0);
    double const share = 1 / (1 + cosine);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            turn(row, column) = (row == column ? cosine : 0) + share * axis[row] * axis[column];
    turn(0, 2) += axis.Y();
    turn(1, 2) -= axis.X();
    turn(2, 0) -= axis.Y();
    turn(2, 1) += axis.X();
    return turn;
}

UMatrix4<float> aboutMiddle(UMatrix4<double> const& turn, UPoint3<float> const& middle)
{
    UMatrix4<float> result;
    for (int row = 0; row < 3; ++row) {
        double shift = middle[row];
        for (int i = 0; i < 3; ++i) {
            result(row, i) = float(turn(row, i));
            shift -= turn(row, i) * double(middle[i]);
        }
        result(row, 3) = float(shift);
    }
    return result;
}

bool isTurn(Vector const& unit)
{
    return unit.Z() > 0 || std::hypot(unit.X(), unit.Y()) > smallestTurn;
}

bool isChange(Lying const& lying)
{
    UBox3<float> const box = lying.part->getBoundingBox();
    double const length = lying.down.GetLength();
    if (box.Isnullptr() || !(length > 0) || !std::isfinite(length))
        return false;
    return isTurn(lying.down * (1 / length)) || std::abs(box.MinZ()) > onPlateMm;
}

/// Of faces that are as good as equal the one that lies lowest already.
FlatFace const& lowestOfLargest(std::vector<FlatFace> const& faces)
{
    constexpr double equal = 0.999;
    auto const end = std::find_if(faces.begin(), faces.end(), [&](FlatFace const& face) {
        return face.area < equal * faces.front().area;
    });
    return *std::min_element(faces.begin(), end, [](FlatFace const& a, FlatFace const& b) {
        return a.normal.Z() < b.normal.Z();
    });
}

/// Whether a face is what a cut made, as a connector's clearance may have moved it.
bool isOf(Mesh::CutFace const& cut, FlatFace const& face)
{
    constexpr double sameDirection = 0.9999, farthestMm = 2;
    return (cut.normal | face.normal) > sameDirection &&
           std::abs(cut.distance - face.distance) < farthestMm;
}

/// The largest face that a cut made; null if none did.
FlatFace const* cutFaceAmong(std::vector<FlatFace> const& faces, Mesh::CutMemory const& memory)
{
    auto const place = std::find_if(faces.begin(), faces.end(), [&](FlatFace const& face) {
        return std::any_of(memory.faces.begin(), memory.faces.end(),
                           [&](Mesh::CutFace const& cut) { return isOf(cut, face); });
    });
    return place == faces.end() ? nullptr : &*place;
}

void lay(Lying const& lying)
{
    Vector const down = lying.down * (1 / lying.down.GetLength());
    if (isTurn(down))
        lying.part->loadMatrix(aboutMiddle(turnDown(down), middleOf(lying.part->getBoundingBox())));
    lying.part->translate({0, 0, -lying.part->getBoundingBox().MinZ()}, 0);
}

}  // namespace

bool layDown(Mesh::Document& document, std::vector<Lying> const& lying)
{
    if (std::none_of(lying.begin(), lying.end(), isChange))
        return false;
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Lay Flat"));
    for (Lying const& each : lying)
        if (isChange(each))
            lay(each);
    return true;
}

bool layOnLargestFace(Mesh::Document& document, Parts const& parts, Parts& left)
{
    std::vector<Lying> lying;
    left.clear();
    for (Mesh::DocumentObject* const part : parts) {
        MeshKernel const* const kernel = part->meshProperty->getMesh();
        auto const faces = kernel ? standingFaces(*kernel) : std::vector<FlatFace>();
        if (faces.empty())
            left.push_back(part);
        else
            lying.push_back({part, lowestOfLargest(faces).normal});
    }
    return layDown(document, lying);
}

bool layOnCutFace(Mesh::Document& document, Parts const& parts, CutFaceOutcome& outcome)
{
    std::vector<Lying> lying;
    outcome = {};
    for (Mesh::DocumentObject* const part : parts) {
        MeshKernel const* const kernel = part->meshProperty->getMesh();
        auto const faces = kernel ? standingFaces(*kernel) : std::vector<FlatFace>();
        FlatFace const* const cut = cutFaceAmong(faces, Mesh::cutMemoryOf(*part));
        if (faces.empty()) {
            outcome.left.push_back(part);
            continue;
        }
        if (!cut)
            outcome.onLargest.push_back(part);
        lying.push_back({part, cut ? cut->normal : lowestOfLargest(faces).normal});
    }
    return layDown(document, lying);
}

}  // namespace PartPlacement
