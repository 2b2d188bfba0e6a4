// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

/// A note over a view, beside what it speaks of. The mouse goes through it.
class OverlayLabel : public QLabel
{
    Q_OBJECT

public:
    /// name  what tests find it by
    OverlayLabel(QWidget& view, char const* name);

    /// Moves it to the right of a place of the view and below, but never out of the view.
    void putBeside(QPoint place);
};
