// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace Freecut {

class VolumeGraphicObject;

/// The little label beside a tool's point: a child of the view. A click on one selects its point of
/// a polygon, and stays with the label as a whole; a turn of the wheel over it acts on the view in
/// front as it would beside the label.
class TLabel : public QLabel
{
public:
    /// The style sheet is the record of which point of a polygon is selected: exactly one label at
    /// a time has the first.
    static char const selectedStyle[];
    static char const unselectedStyle[];

    TLabel();
    /// setObject must follow before the first click.
    explicit TLabel(QWidget* parent);

    /// The tool, borrowed.
    void setObject(VolumeGraphicObject* tool) { object = tool; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    VolumeGraphicObject* object = nullptr;
};

}  // namespace Freecut
