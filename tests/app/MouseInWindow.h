// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QTest>
#include <QWidget>
#include <QWindow>

/// A mouse over a shown window, whose events go the whole way that those of a real one go: from the
/// window to whichever widget lies there, with the modifiers known to the application.
class MouseInWindow
{
public:
    explicit MouseInWindow(QWidget& window) : m_window(window) {}

    /// Places are those of the widget, as are all that follow.
    void moveTo(QWidget const& widget, QPoint place, Qt::KeyboardModifiers modifiers = {}) const
    {
        send(QTest::MouseMove, Qt::NoButton, widget, place, modifiers);
    }
    void press(QWidget const& widget, QPoint place, Qt::KeyboardModifiers modifiers = {}) const
    {
        send(QTest::MousePress, Qt::LeftButton, widget, place, modifiers);
    }
    void release(QWidget const& widget, QPoint place, Qt::KeyboardModifiers modifiers = {}) const
    {
        send(QTest::MouseRelease, Qt::LeftButton, widget, place, modifiers);
    }
    void click(QWidget const& widget, QPoint place, Qt::KeyboardModifiers modifiers = {}) const
    {
        moveTo(widget, place, modifiers);
        press(widget, place, modifiers);
        release(widget, place, modifiers);
    }
    void click(QWidget const& widget) const { click(widget, widget.rect().center()); }
    /// Over the handle, down, along the way and up, as a hand does.
    void drag(QWidget const& widget, QPoint from, QPoint way,
              Qt::KeyboardModifiers modifiers = {}) const
    {
        constexpr int steps = 6;
        moveTo(widget, from, modifiers);
        press(widget, from, modifiers);
        for (int i = 1; i <= steps; ++i)
            moveTo(widget, from + way * i / steps, modifiers);
        release(widget, from + way, modifiers);
    }

private:
    void send(QTest::MouseAction action, Qt::MouseButton button, QWidget const& widget,
              QPoint place, Qt::KeyboardModifiers modifiers) const
    {
        QTest::mouseEvent(action, m_window.windowHandle(), button, modifiers,
                          widget.mapTo(&m_window, place));
        QCoreApplication::processEvents();
    }

    QWidget& m_window;
};
