// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <functional>

/// Fills in the next modal dialog of a class that comes up, and accepts it.
template <typename Dialog>
class AnsweredDialog
{
public:
    explicit AnsweredDialog(std::function<void(Dialog&)> fill = {}) : m_fill(std::move(fill))
    {
        QObject::connect(&m_watch, &QTimer::timeout, [this] { look(); });
        m_watch.start(5);
    }

    bool hasCome() const { return m_hasCome; }

private:
    void look()
    {
        auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog || m_hasCome)
            return;
        m_hasCome = true;
        if (m_fill)
            m_fill(*dialog);
        dialog->accept();
    }

    std::function<void(Dialog&)> m_fill;
    bool m_hasCome = false;
    QTimer m_watch;
};
