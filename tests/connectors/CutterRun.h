// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/LapJointCutter.h"
#include "connectors/PinHoleCutter.h"
#include "tests/connectors/ConnectorScene.h"
#include "tests/support/TestDocument.h"
#include "tests/support/Validator.h"

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
/// Volume that two solids have in common.
double commonVolume(Soup const& a, Soup const& b);
