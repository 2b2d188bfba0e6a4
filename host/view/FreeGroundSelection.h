// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/RectangleSelection.h"

/// What the left button does in a view while no tool runs: a drag that begins beside all parts spans
/// a rectangle, which selects as that of the tool does. Where the left button turns the view, the
/// control key has to be down for that. All clicks are the view's.
class FreeGroundSelection : public Base::RectangleSelection
{
public:
    int mousePressEvent(QMouseEvent* event) override;

protected:
    void clicked(QMouseEvent* event) override;
};
