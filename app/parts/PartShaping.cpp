// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/EditStep.h"
#include "app/parts/PartPlacement.h"

#include <QString>

#include <cmath>

// Quarter turns, reflections and scales: what changes more than where a part stands.
namespace PartPlacement {

namespace {

/// A factor that a person can mean; false for what is no number.
bool isFactor(double factor)
{
    return factor >= smallestFactor && factor <= largestFactor;
}

/// A linear operation as seen from a point that it leaves in place.
UMatrix4<float> about(UPoint3<float> const& centre, UMatrix4<float> linear)
{
    for (int row = 0; row < 3; ++row) {
        double shift = centre[row];
        for (int i = 0; i < 3; ++i)
            shift -= double(linear(row, i)) * double(centre[i]);
        linear(row, 3) = float(shift);
    }
    return linear;
}

}  // namespace

bool quarterTurn(Mesh::Document& document, Parts const& parts, int axis, bool isBackwards)
{
    UBox3<float> const box = boxOf(parts);
    if (box.Isnullptr())
        return false;
    int const from = (axis + 1) % 3, to = (axis + 2) % 3;
    float const sine = isBackwards ? -1.0f : 1.0f;
    UMatrix4<float> turn;
    turn(from, from) = turn(to, to) = 0;
    turn(to, from) = sine;
    turn(from, to) = -sine;
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Rotate"));
    for (Mesh::DocumentObject* const part : parts)
        part->loadMatrix(about(middleOf(box), turn));
    return true;
}

bool mirror(Mesh::Document& document, Parts const& parts, int axis)
{
    UBox3<float> const box = boxOf(parts);
    if (box.Isnullptr())
        return false;
    UMatrix4<float> reflection;
    reflection(axis, axis) = -1;
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Mirror"));
    for (Mesh::DocumentObject* const part : parts)
        part->loadMatrix(about(middleOf(box), reflection));
    return true;
}

bool scale(Mesh::Document& document, Parts const& parts, UVector3<double> const& factors)
{
    UBox3<float> const box = boxOf(parts);
    bool isChange = false;
    for (int axis = 0; axis < 3; ++axis) {
        if (!isFactor(factors[axis]))
            return false;
        isChange |= factors[axis] != 1;
    }
    if (box.Isnullptr() || !isChange)
        return false;
    UPoint3<float> centre = middleOf(box);
    centre.Z() = box.MinZ();
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Scale"));
    for (Mesh::DocumentObject* const part : parts)
        part->scale(centre, {float(factors[0]), float(factors[1]), float(factors[2])});
    return true;
}

}  // namespace PartPlacement
