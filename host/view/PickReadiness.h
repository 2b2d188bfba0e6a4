// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class ViewScene;

/// Whether picks in a view answer at once, so that each move of the mouse can make one. Where they
/// do not, one mesh that is not large is sorted for the next time; large ones are ready with their
/// pictures.
bool arePicksQuick(ViewScene const& scene);
