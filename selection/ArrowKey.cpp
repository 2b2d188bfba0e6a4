// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/ArrowKey.h"

#include <QKeyEvent>

namespace Freecut {

std::optional<ArrowKey> arrowOf(QKeyEvent const& event)
{
    constexpr int manySteps = 10;
    // The arrows of the number block count too.
    Qt::KeyboardModifiers const modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier)
        return {};
    int const steps = modifiers == Qt::ShiftModifier ? manySteps : 1;
    switch (event.key()) {
        case Qt::Key_Left:
            return ArrowKey{-steps, 0};
        case Qt::Key_Right:
            return ArrowKey{steps, 0};
        case Qt::Key_Up:
            return ArrowKey{0, steps};
        case Qt::Key_Down:
            return ArrowKey{0, -steps};
        default:
            return {};
    }
}

}  // namespace Freecut
