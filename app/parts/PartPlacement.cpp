// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PartPlacement.h"

#include "app/parts/EditStep.h"

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

/// A turn as a unit quaternion: the cosine of half the angle, and the axis, of the length of its
/// sine.
struct Turn
{
    double cosine = 1;
    UVector3<double> axis;

    /// First the other turn, then this one.
    Turn operator*(Turn const& first) const
    {
        return {cosine * first.cosine - (axis | first.axis),
                first.axis * cosine + axis * first.cosine + axis * first.axis};
    }
};

/// The turn about one axis. An angle that is not finite, or a multiple of a full turn, turns
/// nothing.
Turn about(int axis, UVector3<double> const& degrees)
{
    double const rest = std::isfinite(degrees[axis]) ? std::remainder(degrees[axis], 360.0) : 0;
    double const half = rest * std::numbers::pi / 360;
    Turn turn;
    turn.cosine = std::cos(half);
    turn.axis[axis] = std::sin(half);
    return turn;
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
    Turn const turn = about(2, degrees) * about(1, degrees) * about(0, degrees);
    double const sine = turn.axis.GetLength();
    if (box.Isnullptr() || sine == 0)
        return false;
    auto const angle = float(2 * std::atan2(sine, turn.cosine));
    UVector3<float> const axis(float(turn.axis.X()), float(turn.axis.Y()), float(turn.axis.Z()));
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Rotate"));
    for (Mesh::DocumentObject* const part : parts)
        part->rotate(middleOf(box), angle, axis, false);
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
