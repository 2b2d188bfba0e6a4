// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/PictureTip.h"

/// What the values of the connector pages mean.
namespace Freecut::ConnectorTips {

/// A value that pins and holes share.
struct PinHoleTip
{
    PictureTip::Content ofPins;
    PictureTip::Content ofHoles;
};

inline constexpr PinHoleTip radius = {
    {"pin_radius",
     QT_TRANSLATE_NOOP("Freecut::PictureTip",
                       "Radius of the pins. Their holes are wider by the side clearance.")},
    {"hole_radius", QT_TRANSLATE_NOOP("Freecut::PictureTip",
                                      "Radius of the rod that you will put in. The holes "
                                      "are wider by the side clearance.")}};
inline constexpr PictureTip::Content tolerance = {
    "tolerance", QT_TRANSLATE_NOOP("Freecut::PictureTip",
                                   "How far a flat facet may lie within the true circle. Small "
                                   "values make rounder shapes of more triangles.")};
inline constexpr PinHoleTip height = {
    {"pin_height", QT_TRANSLATE_NOOP("Freecut::PictureTip",
                                     "How far a pin stands out of the face of its piece.")},
    {"hole_height",
     QT_TRANSLATE_NOOP("Freecut::PictureTip", "How far the rod reaches into each piece.")}};
inline constexpr PictureTip::Content sideDistance = {
    "side_distance",
    QT_TRANSLATE_NOOP("Freecut::PictureTip",
                      "Distance from the contour of the section to the centres of pins or holes. "
                      "Without the tick they follow the middle of the section.")};
inline constexpr PinHoleTip topClearance = {
    {"pin_top_clearance",
     QT_TRANSLATE_NOOP("Freecut::PictureTip", "How much deeper a hole is than its pin is high.")},
    {"hole_top_clearance",
     QT_TRANSLATE_NOOP("Freecut::PictureTip",
                       "How much deeper each hole is than the rod reaches into it.")}};
inline constexpr PictureTip::Content spacing = {
    "spacing",
    QT_TRANSLATE_NOOP("Freecut::PictureTip", "Least distance of two centres of pins or holes.")};
inline constexpr PinHoleTip sideClearance = {
    {"pin_side_clearance", QT_TRANSLATE_NOOP("Freecut::PictureTip",
                                             "How much wider a hole is than its pin, all round. "
                                             "0.1 to 0.2 mm suit most printers.")},
    {"hole_side_clearance", QT_TRANSLATE_NOOP("Freecut::PictureTip",
                                              "How much wider a hole is than the rod, all round. "
                                              "0.1 to 0.2 mm suit most printers.")}};
inline constexpr PinHoleTip faceClearance = {
    {"pin_face_clearance",
     QT_TRANSLATE_NOOP("Freecut::PictureTip", "Gap between the faces of the two pieces.")},
    {"hole_face_clearance",
     QT_TRANSLATE_NOOP("Freecut::PictureTip", "Gap between the faces of the two pieces.")}};

inline constexpr PictureTip::Content notchDepth = {
    "joint_notch_depth",
    QT_TRANSLATE_NOOP("Freecut::PictureTip",
                      "How far the tongue stands out of the face of its piece.")};
inline constexpr PictureTip::Content jointSideDistance = {
    "joint_side_distance",
    QT_TRANSLATE_NOOP("Freecut::PictureTip",
                      "Distance from the contour of the section to the tongue.")};
/// In the order of the choices.
inline constexpr PictureTip::Content sideContours[] = {
    {"joint_outer_contours",
     QT_TRANSLATE_NOOP("Freecut::PictureTip",
                       "The tongue keeps its distance from outer contours alone.")},
    {"joint_inner_contours",
     QT_TRANSLATE_NOOP("Freecut::PictureTip",
                       "The tongue keeps its distance from the contours of openings alone.")},
    {"joint_all_contours",
     QT_TRANSLATE_NOOP("Freecut::PictureTip", "The tongue keeps its distance from all contours.")}};
inline constexpr PictureTip::Content notchClearance = {
    "joint_notch_clearance",
    QT_TRANSLATE_NOOP("Freecut::PictureTip",
                      "How much wider the notch is than the tongue, on each "
                      "side. At most the side distance.")};
inline constexpr PictureTip::Content frontClearance = {
    "joint_front_clearance",
    QT_TRANSLATE_NOOP("Freecut::PictureTip",
                      "Gap between the faces of the two pieces. At most the notch depth.")};
inline constexpr PictureTip::Content backClearance = {
    "joint_back_clearance", QT_TRANSLATE_NOOP("Freecut::PictureTip",
                                              "How much deeper the notch is than the tongue is "
                                              "high. At most the notch depth.")};

}  // namespace Freecut::ConnectorTips
