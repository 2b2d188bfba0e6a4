// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/PlaneFrame.h"
#include "connectors/SectionContour.h"
#include "platform/geometry/UPoint2.h"
#include "platform/mesh/MeshKernel.h"
#include "tests/support/Soup.h"
#include "tools/PlaneGraphicObject.h"

#include <memory>
#include <vector>

using Ring = std::vector<UPoint2<float>>;

/// A square plane about a centre, its normal along first x second.
std::unique_ptr<Freecut::PlaneGraphicObject> planeAt(UPoint3<float> const& centre,
                                                     UVector3<float> const& first = {1, 0, 0},
                                                     UVector3<float> const& second = {0, 1, 0},
                                                     float halfSide = 30);
PlaneFrame frameOf(Freecut::PlaneGraphicObject const& plane);

/// An upright prism over an outer ring, which runs anticlockwise, less holes, which run clockwise.
Soup prism(std::vector<Ring> const& rings, float low, float high);
Ring rectangle(float x0, float y0, float x1, float y1, bool isHole = false);
Ring circle(float radius, int points, bool isHole = false);

/// Sections that a person would put pins into.
std::vector<std::pair<std::string, std::vector<Ring>>> commonSections();

/// A section face and its contours.
struct Section
{
    MeshKernel cap;
    std::vector<SectionContour> contours;
};

/// The section of a solid with a plane that is not bounded.
std::unique_ptr<Section> sectionOf(Soup const& soup, Freecut::PlaneGraphicObject& plane);
/// The section of the prism over the rings at its middle, z = 0.
std::unique_ptr<Section> sectionOf(std::vector<Ring> const& rings);

/// Least distance of a point from all contours, one segment after the other.
float distanceFrom(std::vector<SectionContour> const& contours, UPoint3<float> const& p);
/// Twice the area is what runs anticlockwise in x and y.
double signedArea(SectionContour const& contour);
/// Whether a point in the plane z = 0 lies on a face of the section.
bool isOn(MeshKernel const& cap, UPoint3<float> const& p);
