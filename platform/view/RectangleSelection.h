// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/RubberbandSelection.h"

namespace Base {

/// Selects parts: the one that is clicked, or all that show within the rubber band. With the
/// control key the rest of the selection stays, and a click on a selected part takes it out.
class RectangleSelection : public RubberbandSelection
{
public:
    static Type classTypeId;
    static Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    Type getTypeId() const override;
    std::string getClassName() const override;

protected:
    /// Takes the visible parts whose boxes, as seen in the view, lie within the band altogether.
    void bandSpanned(QRect const& band, QMouseEvent* event) override;
    void clicked(QMouseEvent* event) override;
};

}  // namespace Base
