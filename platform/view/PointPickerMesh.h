// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "platform/view/RectangleSelection.h"

#include <QPointer>

#include <optional>

class PickedPointLabel;

namespace Mesh {

/// Picks points on parts: a click with the left button marks the point under the mouse and shows
/// its coordinates beside it, in world millimetres or the unit that the user has chosen; a click
/// beside all parts takes the mark away.
class PointPickerMesh : public Base::RectangleSelection
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    ~PointPickerMesh() override;
    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    void terminate() override;
    int mousePressEvent(QMouseEvent* event) override;
    int mouseMoveEvent(QMouseEvent* event) override;
    int mouseReleaseEvent(QMouseEvent* event) override;
    void draw() override;

    /// The point that is marked.
    std::optional<UPoint3<float>> const& pickedPoint() const { return m_point; }

    /// Takes the mark away, and lets the click go that is under way.
    void clearMark();

private:
    void mark(std::optional<UPoint3<float>> point);
    void placeLabel(QPoint mark);

    bool m_isPressed = false;
    QPoint m_press;
    std::optional<UPoint3<float>> m_point;
    QPointer<PickedPointLabel> m_label;
};

}  // namespace Mesh
