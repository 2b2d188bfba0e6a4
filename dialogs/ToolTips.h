// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/PictureTip.h"

#include <array>

/// What the values of drawn tools and their teeth mean.
namespace Freecut::ToolTips {

inline constexpr PictureTip::Content jaggedWidth = {
    "teeth_jagged_width",
    QT_TRANSLATE_NOOP("Freecut::PictureTip", "Width of a tooth at the edge.")};
inline constexpr PictureTip::Content jaggedHeight = {
    "teeth_jagged_height",
    QT_TRANSLATE_NOOP("Freecut::PictureTip", "How far a tooth stands out of the edge.")};
inline constexpr PictureTip::Content doveUpper = {
    "teeth_dove_upper",
    QT_TRANSLATE_NOOP("Freecut::PictureTip",
                      "Width of a tooth away from the edge. Where it is larger than the lower "
                      "width, the pieces cannot be pulled apart.")};
inline constexpr PictureTip::Content doveLower = {
    "teeth_dove_lower",
    QT_TRANSLATE_NOOP("Freecut::PictureTip", "Width of a dovetail at the edge.")};
inline constexpr PictureTip::Content doveHeight = {
    "teeth_dove_height",
    QT_TRANSLATE_NOOP("Freecut::PictureTip", "How far a dovetail stands out of the edge.")};
inline constexpr PictureTip::Content puzzleWidth = {
    "teeth_puzzle_width",
    QT_TRANSLATE_NOOP("Freecut::PictureTip",
                      "Width of a tab at its head. Its neck is narrower by the height.")};
inline constexpr PictureTip::Content puzzleHeight = {
    "teeth_puzzle_height",
    QT_TRANSLATE_NOOP("Freecut::PictureTip",
                      "How far a tab stands out of the edge; at most its width.")};
inline constexpr PictureTip::Content count = {
    "teeth_count",
    QT_TRANSLATE_NOOP("Freecut::PictureTip",
                      "So many teeth are spread over the whole edge, less the offset.")};
inline constexpr PictureTip::Content toothDistance = {
    "teeth_distance",
    QT_TRANSLATE_NOOP("Freecut::PictureTip", "From the middle of one tooth to the next.")};
inline constexpr PictureTip::Content offset = {
    "teeth_offset",
    QT_TRANSLATE_NOOP("Freecut::PictureTip",
                      "Length that is left without teeth at the start of the edge.")};
inline constexpr PictureTip::Content allEdges = {
    "teeth_all",
    QT_TRANSLATE_NOOP("Freecut::PictureTip", "Every edge of the outline gets these teeth.")};
inline constexpr PictureTip::Content flip = {
    "teeth_flip",
    QT_TRANSLATE_NOOP("Freecut::PictureTip", "Puts the teeth on the other side of the edge.")};

inline constexpr PictureTip::Content roundCorners = {
    "tool_round", QT_TRANSLATE_NOOP("Freecut::PictureTip",
                                    "Radius with which the corners of the outline are rounded. A "
                                    "corner whose edges are too short for it stays sharp.")};
inline constexpr PictureTip::Content clearance = {
    "tool_clearance",
    QT_TRANSLATE_NOOP("Freecut::PictureTip",
                      "Gap between the two pieces, all along the outline. 0.1 to 0.2 mm suit most "
                      "printers.")};
/// As clearanceDirection counts them.
inline constexpr std::array<PictureTip::Content, 3> clearanceSides = {
    {{"tool_clearance_inside",
      QT_TRANSLATE_NOOP("Freecut::PictureTip",
                        "The gap is taken from the piece within the outline.")},
     {"tool_clearance_outside",
      QT_TRANSLATE_NOOP("Freecut::PictureTip", "The gap is taken from the rest of the part.")},
     {"tool_clearance_both",
      QT_TRANSLATE_NOOP("Freecut::PictureTip",
                        "The gap is taken from both, so that it is twice as wide.")}}};

}  // namespace Freecut::ToolTips
