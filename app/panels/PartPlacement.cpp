// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/PartPlacement.h"

#include "app/commands/EditStep.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace PartPlacement {

namespace {

bool isMove(UVector3<float> const& offset)
{
    bool const isFinite =
        std::isfinite(offset.X()) && std::isfinite(offset.Y()) && std::isfinite(offset.Z());
    return isFinite && !(offset == UVector3<float>());
}

bool moveAs(Mesh::Document& document, Parts const& parts, UVector3<float> const& offset,
            char const* name)
{
    if (parts.empty() || !isMove(offset))
        return false;
    EditStep const step(document, name);
    for (Mesh::DocumentObject* const part : parts)
        part->translate(offset, 0);
    return true;
}

/// How far up a part goes to stand on the plate.
UVector3<float> toPlate(Mesh::DocumentObject const* part)
{
    UBox3<float> const box = part->getBoundingBox();
    return {0, 0, box.Isnullptr() ? 0.0f : -box.MinZ()};
}

}  // namespace

UBox3<float> boxOf(Parts const& parts)
{
    UBox3<float> box;
    for (Mesh::DocumentObject const* const part : parts)
        box.Add(part->getBoundingBox());
    return box;
}

UPoint3<float> middleOf(UBox3<float> const& box)
{
    return (box.min + box.max) * 0.5f;
}

bool move(Mesh::Document& document, Parts const& parts, UVector3<float> const& offset)
{
    return moveAs(document, parts, offset, QT_TRANSLATE_NOOP("UndoRedoName", "Move"));
}

bool rotate(Mesh::Document& document, Parts const& parts, UVector3<double> const& degrees)
{
    UBox3<float> const box = boxOf(parts);
    UVector3<double> angles = degrees;
    for (int axis = 0; axis < 3; ++axis)
        angles[axis] = std::isfinite(angles[axis])
                           ? std::remainder(angles[axis], 360.0) * std::numbers::pi / 180
                           : 0;
    if (box.Isnullptr() || angles == UVector3<double>())
        return false;
    UPoint3<float> const middle = middleOf(box);
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Rotate"));
    for (Mesh::DocumentObject* const part : parts)
        for (int axis = 0; axis < 3; ++axis) {
            UVector3<float> direction;
            direction[axis] = 1;
            if (angles[axis] != 0)
                part->rotate(middle, float(angles[axis]), direction, false);
        }
    return true;
}

bool dropToPlate(Mesh::Document& document, Parts const& parts)
{
    auto const floats = [](auto const* part) { return isMove(toPlate(part)); };
    if (std::none_of(parts.begin(), parts.end(), floats))
        return false;
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Drop to Plate"));
    for (Mesh::DocumentObject* const part : parts)
        if (floats(part))
            part->translate(toPlate(part), 0);
    return true;
}

bool centreOnPlate(Mesh::Document& document, Parts const& parts)
{
    UBox3<float> const box = boxOf(parts);
    if (box.Isnullptr())
        return false;
    UPoint3<float> const middle = middleOf(box);
    return moveAs(document, parts, {-middle.X(), -middle.Y(), 0},
                  QT_TRANSLATE_NOOP("UndoRedoName", "Centre on Plate"));
}

}  // namespace PartPlacement
