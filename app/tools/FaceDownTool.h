// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/AbstractMouseSelection.h"

#include <QPoint>

/// A click on a part lays it on the plate with the face that was clicked down, as an undo step. While
/// a job runs clicks do nothing.
class FaceDownTool : public Base::AbstractMouseSelection
{
public:
    static constexpr char const* name = "FaceDownTool";
    static Base::Type classTypeId;
    /// May be called again.
    static void init();

    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    int mousePressEvent(QMouseEvent* event) override;
    int mouseMoveEvent(QMouseEvent* event) override;
    int mouseReleaseEvent(QMouseEvent* event) override;

private:
    static void* create();
    void layOnFaceAt(QPoint position);

    bool m_isPressed = false;
    QPoint m_press;
};
