// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/GLGraphicsItem.h"
#include "display/SolidPicture.h"
#include "platform/services/SolidSplit.h"

namespace Freecut {

namespace ToolColors {

/// Where a solid tool meets the parts.
inline constexpr Color255 contour{0, 160, 70, 255};
/// The same behind what lies in front of it.
inline constexpr Color255 hiddenContour{0, 160, 70, 130};

}  // namespace ToolColors

/// Shows the lines in which a solid tool meets the parts, at their places in depth: faint where
/// something lies in front of them. Seen along the tool they all lie on its outline, which then stays
/// alone. It works while it has something to show.
class ContourItem : public GLGraphicsItem
{
public:
    using GLGraphicsItem::GLGraphicsItem;

    /// In place of what was shown before.
    ///
    /// direction  in which the tool cuts
    void setLines(ContourLines const& lines, UVector3<float> const& direction);
    /// x, y, z of the ends of all lines.
    std::vector<float> const& vertices() const { return m_vertices; }

    void renderItem_GL_3_3() override;
    void renderItem_GL_2_1() override;

private:
    bool isSeenAlongTool() const;
    LineBuffers upload();
    template <typename Draw>
    void render(Draw const& draw);

    std::vector<float> m_vertices;
    UVector3<float> m_direction;
    bool m_isUploaded = false;
};

}  // namespace Freecut
