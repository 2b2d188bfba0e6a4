// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/MeshBuilders.h"

/// Models in the manner of what people cut, made by arithmetic: closed, in millimetres, standing
/// on z = 0 and more than 40 mm high.

/// A head as a scanner gives it: smooth features, fine waves and noise; all points are shared and
/// the triangles are of even size. It has twelve times `fineness` squared triangles.
Soup scannedHead(int fineness);
/// An animal with four legs, a tail and two horns, about 30,000 triangles of very uneven shape.
Soup branchedFigure();
/// The same with a tube through its body, in one mesh: it crosses itself, and nothing else.
Soup crossingFigure();
/// A head without the triangles of a patch at its base, which are some hundredths of all.
Soup openHead(int fineness);
/// An upright plate with rounded corners, holes of several sizes and walls of 1.2 mm: long thin
/// triangles and large flat faces.
Soup mechanicalPlate();
/// A turned part with fillets, a bore and a lip of 1 mm.
Soup turnedFlange();
/// A twisted vase, its wall 1.6 mm thick.
Soup twistedVase();

/// What a model offers to a test that chooses among them.
struct MadeModel
{
    std::string name;
    Soup soup;
    /// Walls too thin for connectors of common size.
    bool isThin = false;
};

/// All of these but the one that crosses itself, the head with some 25,000 triangles.
std::vector<MadeModel> madeModels();

/// The models made here and, where they are, the closed real ones, each below a number of
/// triangles; under sanitizers small ones made here alone.
std::vector<NamedSoup> closedModels(std::size_t maximumTriangles);
/// The same without thin walls.
std::vector<NamedSoup> stoutModels(std::size_t maximumTriangles);
/// The same as closedModels without the one that crosses itself.
std::vector<NamedSoup> soundModels(std::size_t maximumTriangles);

/// A model made here and, where it is, a real one.
std::vector<NamedSoup> withReal(NamedSoup made, std::string const& fileName);
