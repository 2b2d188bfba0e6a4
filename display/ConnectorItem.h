// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "display/ConnectorPicture.h"
#include "display/GLGraphicsItem.h"

namespace Freecut {

/// Shows connectors before they are cut, translucent and over the parts, since they lie within
/// them. It works while it has something to show.
class ConnectorItem : public GLGraphicsItem
{
public:
    using GLGraphicsItem::GLGraphicsItem;

    /// In place of what was shown before.
    void setShapes(ConnectorShapes const& shapes);
    ConnectorPicture const& picture() const { return m_picture; }

    void renderItem_GL_3_3() override;
    void renderItem_GL_2_1() override;

private:
    LineBuffers upload();

    ConnectorPicture m_picture;
    bool m_isUploaded = false;
};

}  // namespace Freecut
