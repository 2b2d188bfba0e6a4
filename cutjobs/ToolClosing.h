// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class MeshKernel;

/// Closes a tool's mesh where it is open, by triangles between its own points, and fills flat caps of
/// very many triangles anew: by short ones instead of the needles that ears leave.
///
/// Caps are cut from outlines as ears, and the ears run out where points of an outline coincide.
/// The openings that this leaves are flat, so each is filled in its plane. Vertices in one place
/// become one. A tool that closes and has no such cap is left as it is.
///
/// poll  called every few thousand triangles; may throw, and the tool stays as it was; may be empty
/// cost  one pass for a tool that closes; else O(n log n)
void closeTool(MeshKernel& tool, std::function<void()> const& poll = {});
