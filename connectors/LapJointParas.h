// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// How a lap joint is shaped, in millimetres.
struct LapJointParas
{
    /// Height of the tongue above the section plane, along the plane's normal.
    float notchDepth = 3.0f;
    /// Inset of the tongue's outline from the contour.
    float sideDistance = 2.0f;
    /// Extra width of the notch over the tongue, on each side, measured in the plane.
    float notchClearance = 0.2f;
    /// Gap left between the two cut faces along the normal.
    float frontClearance = 0.2f;
    /// Extra depth of the notch beyond the tongue's tip.
    float backClearance = 0.2f;
    /// The contours that the joint follows: 0 the outer ones, 1 the inner ones, 2 all.
    int basedOn = 2;
};
