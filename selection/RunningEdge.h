// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <QPoint>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace Base {
class GLView;
}

namespace Freecut {

class RubberLine;
struct SectionLines;

/// A point of an outline that is being drawn or dragged, with the two edges that run to it.
///
/// While a key is held the point is drawn to something: shift turns the edge before it to the next
/// multiple of 15 degrees and makes its length a round one; control draws it to corners and edges of
/// the parts and of their section, to edges of the outline, and in line with its other points.
class RunningEdge
{
public:
    RunningEdge();
    ~RunningEdge();

    /// Where the point stands in the outline.
    struct Spot
    {
        /// The outline without the point.
        std::vector<UPoint3<float>> others;
        /// The index before which the point belongs.
        std::size_t index = 0;
        /// The outline has no such point yet, so that it has the edge that the point divides.
        bool isNew = false;
    };

    /// Where a point of the drawing plane comes to lie while these keys are held.
    ///
    /// section  of the parts, to which control draws it too
    static UPoint3<float> held(Base::GLView const& view, UPoint3<float> const& point, QPoint mouse,
                               Spot const& spot, Qt::KeyboardModifiers keys,
                               SectionLines const& section);
    /// Whether the keys hold points at all.
    static bool isHolding(Qt::KeyboardModifiers keys);

    /// Tells lengths and angles of the edges in the status line, and which keys hold the point, and
    /// draws the edges in the view.
    void show(Base::GLView& view, UPoint3<float> const& point, Spot const& spot, bool isDrawn);
    void hide();
    /// Takes the line out of its view.
    void remove();

private:
    void draw(Base::GLView& view, std::vector<UPoint3<float>> const& line);
    void hideLine();

    Base::GLView* m_view = nullptr;
    std::unique_ptr<RubberLine> m_line;
    QString m_told;
};

}  // namespace Freecut
