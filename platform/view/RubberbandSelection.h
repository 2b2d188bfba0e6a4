// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/AbstractMouseSelection.h"

#include <QRect>

namespace Base {

/// Spans a rubber band while the left button is dragged. What it is good for is up to the classes
/// below it: this one makes nothing of it.
class RubberbandSelection : public AbstractMouseSelection
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();

    Type getTypeId() const override;
    std::string getClassName() const override;

    int mousePressEvent(QMouseEvent* event) override;
    int mouseMoveEvent(QMouseEvent* event) override;
    int mouseReleaseEvent(QMouseEvent* event) override;
    void draw() override;

protected:
    /// The band that was spanned, in widget pixels, normalised.
    virtual void bandSpanned(QRect const& band, QMouseEvent* event);
    /// The left button was pressed and released in one place.
    virtual void clicked(QMouseEvent* event);

private:
    bool m_isPressed = false;
    QPoint m_press;
    QRect m_band;
};

}  // namespace Base
