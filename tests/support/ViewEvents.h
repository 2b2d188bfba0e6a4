// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

/// Events as they come from a mouse, in widget coordinates.

inline void sendMouse(QWidget& widget, QEvent::Type type, QPoint position, Qt::MouseButton button,
                      Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = {})
{
    QMouseEvent event(type, position, widget.mapToGlobal(position), button, buttons, modifiers);
    QCoreApplication::sendEvent(&widget, &event);
}

inline void press(QWidget& widget, QPoint position, Qt::MouseButton button,
                  Qt::KeyboardModifiers modifiers = {})
{
    sendMouse(widget, QEvent::MouseButtonPress, position, button, button, modifiers);
}

inline void release(QWidget& widget, QPoint position, Qt::MouseButton button,
                    Qt::KeyboardModifiers modifiers = {})
{
    sendMouse(widget, QEvent::MouseButtonRelease, position, button, {}, modifiers);
}

inline void move(QWidget& widget, QPoint position, Qt::MouseButtons buttons = {},
                 Qt::KeyboardModifiers modifiers = {})
{
    sendMouse(widget, QEvent::MouseMove, position, Qt::NoButton, buttons, modifiers);
}

inline void click(QWidget& widget, QPoint position, Qt::MouseButton button = Qt::LeftButton,
                  Qt::KeyboardModifiers modifiers = {})
{
    press(widget, position, button, modifiers);
    release(widget, position, button, modifiers);
}

inline void drag(QWidget& widget, QPoint from, QPoint to, Qt::MouseButton button,
                 Qt::KeyboardModifiers modifiers = {})
{
    constexpr int steps = 5;
    press(widget, from, button, modifiers);
    for (int i = 1; i <= steps; ++i)
        move(widget, from + (to - from) * i / steps, button, modifiers);
    release(widget, to, button, modifiers);
}

/// notches  above 0 away from the user
inline void turnWheel(QWidget& widget, QPoint position, double notches)
{
    QWheelEvent event(position, widget.mapToGlobal(position), {}, {0, int(notches * 120)}, {}, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}
