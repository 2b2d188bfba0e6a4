// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEvent>
#include <QWidget>

/// Counts the pictures that a widget is asked to paint.
class PictureCount : public QObject
{
public:
    explicit PictureCount(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};
