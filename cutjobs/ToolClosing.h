// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MeshKernel;

/// Closes a tool's mesh where it is open, by triangles between its own points.
///
/// Caps are cut from outlines as ears, and the ears run out where points of an outline coincide.
/// The openings that this leaves are flat, so each is filled in its plane. Vertices in one place
/// become one. A tool that closes is left as it is.
///
/// cost  one pass for a tool that closes; else O(n log n)
void closeTool(MeshKernel& tool);
