// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/MeshBuilders.h"

#include <string>
#include <vector>

/// Parts as people own them, made by programs: broken in every way that is known, and sound ones in
/// the manner of scans and of mechanical parts. Always the same; some tens of millimetres across
/// unless the name says otherwise.
namespace corpus {

struct Part
{
    /// What the table of success groups by.
    std::string kind;
    std::string name;
    Soup soup;
};

/// Closed, without crossings, in the manner of scans and mechanical parts.
Soup scannedHead(int rings, int segments);
Soup bracketWithBores(int facets);
Soup gearWheel(int teeth);
Soup screwThread(int turns, int facets);

/// A tube along a figure of eight, which crosses itself in the middle.
Soup figureOfEight(int around, int across);
/// A block with a fold that passes through itself: the upper side hangs over and dips back into it.
Soup foldedBlock(int steps);
/// A sphere whose points lie beside where they belong, some of them far: slivers and crossings.
Soup noisyScan(int rings, int segments, float noise, unsigned seed);
/// A band with a half turn, one triangle thick.
Soup moebiusBand(int steps);
/// A box, the lids of whose square openings are missing.
Soup boxWithOpenings(std::vector<float> const& heights);
/// The same mesh with some triangles twice.
Soup withDuplicates(Soup soup, std::size_t every);
/// The same mesh with some triangles turned round.
Soup withFlipped(Soup soup, std::size_t every);
/// Small tetrahedra in a grid, each a shell of its own.
Soup manyShells(std::size_t count);

/// All of them but the heaviest.
std::vector<Part> parts();
/// 100,000 shells, high genus and such.
std::vector<Part> heavyParts();

}  // namespace corpus
