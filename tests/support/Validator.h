// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <cstddef>
#include <string>

/// An independent judge of meshes: it shares no code with the services that it checks.

/// What is wrong with a mesh as a closed solid, in words; empty if nothing is. Checked: every
/// directed edge has exactly as many partners running the other way as there are of itself, at most
/// eight, no triangle without area, no triangle that refers to a missing point, stored counts true.
std::string closedSolidFaults(MeshKernel const& kernel);
std::string closedSolidFaults(Soup const& soup);

/// Like closedSolidFaults, but only for edges and areas of the mesh as it is; edges with four
/// triangles are faults too.
std::string manifoldFaults(Soup const& soup);

double volumeOf(Soup const& soup);
double areaOf(Soup const& soup);
/// Connected components over shared points.
std::size_t componentsOf(Soup const& soup);
/// Points less edges plus triangles, over the points that are used.
long eulerNumberOf(Soup const& soup);
/// Number of border edges: those used in one direction only.
std::size_t borderEdgesOf(Soup const& soup);
/// Sum of the triangles' areas as vectors; zero for a closed mesh.
UVector3<double> vectorAreaOf(Soup const& soup);
