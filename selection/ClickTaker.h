// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QMouseEvent;

namespace Freecut {

/// Who takes, in the place of the point picker, what a person does with the mouse beside the
/// handles of a plane that stands.
class ClickTaker
{
public:
    virtual ~ClickTaker() = default;

    /// The left button was pressed and let go at one place.
    virtual void clicked(QMouseEvent const& event) = 0;
    /// The mouse is somewhere, with no button pressed.
    virtual void hovered(QMouseEvent const& event) = 0;
};

}  // namespace Freecut
