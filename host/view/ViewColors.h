// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The colours of a view that go with the theme, as 0xRRGGBBAA.
struct ViewColors
{
    unsigned plateFill;
    unsigned plateEdge;
    unsigned plateLine;
    unsigned axes[3];
    unsigned part;
    unsigned selected;
    unsigned candidate;
    unsigned backFace;
    unsigned edges;
    unsigned outline;
    unsigned sectionLine;
};

/// By g_ThemeColor, as it is now.
ViewColors const& viewColors();
