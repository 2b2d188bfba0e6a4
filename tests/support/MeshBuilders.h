// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <string>
#include <vector>

/// Solids for tests, in millimetres, closed and outward-facing unless the name says otherwise.

Soup box(float x, float y, float z, UPoint3<float> const& low = {});
/// Axis along Z from z = 0, its side made of `facets` quads.
Soup cylinder(float radius, float height, int facets);
/// A cylinder with a round hole right through it.
Soup tube(float outer, float inner, float height, int facets);
Soup torus(float ring, float pipe, int around, int across);
Soup sphere(float radius, int rings, int segments, UPoint3<float> const& centre = {});
/// A lattice of beams, `cells` openings along each axis: a closed surface of high genus.
Soup lattice(int cells);
/// Unit cubes filled at random in a grid, their common faces left out: a closed surface that
/// touches itself along edges and in corners.
Soup randomVoxels(int size, unsigned seed);
/// Cubes of 10 mm where the rows, the uppermost first, have a '#', seen from the front: x runs to
/// the right, z up, and y from 0 to 10. Common faces are left out.
Soup fromFrontView(std::vector<std::string> const& rows);
/// A box with a box-shaped cavity, and in it a smaller box.
Soup nestedBoxes();
/// A box without its top.
Soup openBox(float x, float y, float z);
/// Two boxes that overlap, in one mesh: it crosses itself.
Soup crossingBoxes();
/// Two boxes that touch along one edge, with joined vertices.
Soup boxesSharingAnEdge();

struct NamedSoup
{
    std::string name;
    Soup soup;
};

/// Every closed builder, for tests that run over families.
std::vector<NamedSoup> closedMeshes();

/// A real model by file name; empty where the models are not there.
Soup realMesh(std::string const& fileName);
/// The closed real models below a number of triangles.
std::vector<NamedSoup> closedRealMeshes(std::size_t maximumTriangles);
