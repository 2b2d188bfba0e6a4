// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/LapJointCutter.h"
#include "connectors/PinHoleCutter.h"
#include "tests/connectors/ConnectorScene.h"
#include "tests/support/TestDocument.h"
#include "tests/support/Validator.h"

#include <string>

/// The pieces of one part.
struct Pieces
{
    Soup lower;
    Soup upper;
};

/// A cut of one part, which must leave two pieces.
template <typename Cutter, typename Paras>
Pieces cutWith(Paras const& paras, Soup const& soup, Freecut::PlaneGraphicObject& plane,
               bool checkBoundary = false)
{
    TestDocument test;
    auto* const part = test.add(soup, "part");
    Cutter cutter(paras, checkBoundary, {part}, &plane);
    cutter.execute({});
    auto const& pieces = cutter.getResult().at(part);
    if (pieces.size() != 2)
        throw std::runtime_error("The cut left " + std::to_string(pieces.size()) + " pieces.");
    return {soupOf(*pieces[0]), soupOf(*pieces[1])};
}

/// Where a line along Z crosses a mesh, from below.
std::vector<float> crossingsAlongZ(Soup const& soup, float x, float y);
/// Where a line along X crosses a mesh.
std::vector<float> crossingsAlongX(Soup const& soup, float y, float z);
/// Where a line along Y crosses a mesh.
std::vector<float> crossingsAlongY(Soup const& soup, float x, float z);
/// Volume that two solids have in common.
double commonVolume(Soup const& a, Soup const& b);

/// Expects closed pieces that have nothing in common as they are and when their faces are put
/// together, and whose volumes add up to the part's with what lies between them.
///
/// gap  from the lower face to the upper one
void expectFit(Soup const& part, Pieces const& pieces, UVector3<float> const& gap);
/// What is wrong with pieces of many triangles in the same sense; empty if nothing is. By volumes
/// and by winding numbers at points beside their surfaces and, besides, beside those that the
/// connectors made, so that every one of them is met.
std::string fitFaultsAtPoints(Soup const& part, Pieces const& pieces, UVector3<float> const& gap);
void expectFitAtPoints(Soup const& part, Pieces const& pieces, UVector3<float> const& gap);
/// The volume below the plane, without connectors.
double volumeBelow(Soup const& part, Freecut::PlaneGraphicObject& plane);
