// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <QPoint>

#include <memory>
#include <optional>
#include <vector>

namespace Base {
class GLView;
}

namespace Freecut {

class RubberLine;

/// The green line over the edge that is under the mouse. It is made when it is first needed, and
/// leaves the view when it is deleted.
class HoverLine
{
public:
    HoverLine();
    ~HoverLine();

    /// The first edge of a closed outline that is nearer than 6 pixels to a widget position.
    static std::optional<int> edgeAt(Base::GLView const& view, QPoint mouse,
                                     std::vector<UPoint3<float>> const& outline);

    void show(Base::GLView& view, UPoint3<float> const& from, UPoint3<float> const& to);
    void hide();
    bool isShown() const;
    /// Takes the line out of its view.
    void remove();

private:
    Base::GLView* m_view = nullptr;
    std::unique_ptr<RubberLine> m_line;
};

}  // namespace Freecut
