// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// What a boolean gives.
enum class BooleanPiece
{
    /// What lies in either operand.
    united,
    /// What lies in both.
    common,
    /// What lies in the first and not in the second.
    difference,
};

/// How many times a result contains a place, from how many times the first operand does, and from
/// whether the second does: once per layer of the first operand, so that one that overlaps itself
/// keeps its layers and all results are bounded by the operands' own triangles.
class BooleanRule
{
public:
    explicit constexpr BooleanRule(BooleanPiece piece) : m_piece(piece) {}

    constexpr int layersAt(int first, bool isInSecond) const
    {
        switch (m_piece) {
            case BooleanPiece::united:
                return isInSecond ? 1 : first;
            case BooleanPiece::common:
                return isInSecond ? first : 0;
            case BooleanPiece::difference:
                break;
        }
        return isInSecond ? 0 : first;
    }

    /// How many times a triangle of the first operand bounds the result, given whether the second
    /// lies in front of it and behind it.
    constexpr int timesOfFirst(bool isSecondInFront, bool isSecondBehind) const
    {
        return layersAt(1, isSecondBehind) - layersAt(0, isSecondInFront);
    }

    /// How many times a triangle of the second operand bounds the result, given the layers of the
    /// first at it; negative if the other way round.
    constexpr int timesOfSecond(int first) const
    {
        return layersAt(first, true) - layersAt(first, false);
    }

    /// The same for a triangle on which some of the first operand lie: what is left where each of
    /// these counts as timesOfFirst tells. That is nothing for a single one without layers in front
    /// of it.
    ///
    /// layers          of the first in front of all
    /// along, against  triangles of the first that face as this one, and the other way
    constexpr int timesOfStack(bool isSecondInFront, bool isSecondBehind, int layers, int along,
                               int against) const
    {
        return layersAt(layers + along - against, isSecondBehind) -
               layersAt(layers, isSecondInFront) -
               along * timesOfFirst(isSecondInFront, isSecondBehind) +
               against * timesOfFirst(isSecondBehind, isSecondInFront);
    }

private:
    BooleanPiece m_piece;
};
