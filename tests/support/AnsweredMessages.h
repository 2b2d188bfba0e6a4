// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/MellMessageBox.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include <utility>

/// Closes the message boxes that come up, and notes what they say.
class AnsweredMessages
{
public:
    /// answer  the text of the button to press
    explicit AnsweredMessages(QString answer = QStringLiteral("OK")) : m_answer(std::move(answer))
    {
        QObject::connect(&m_watch, &QTimer::timeout, [this] { look(); });
        m_watch.start(5);
    }

    QStringList texts;
    QStringList titles;
    QStringList buttons;
    /// What stands behind the button "Details"; empty without one.
    QStringList details;

private:
    void look()
    {
        auto* const box = qobject_cast<MellMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        texts << box->text();
        details << box->details();
        titles << box->windowTitle();
        buttons.clear();
        QPushButton* wanted = nullptr;
        for (QPushButton* const button : box->findChildren<QPushButton*>()) {
            buttons << button->text();
            if (button->text() == m_answer)
                wanted = button;
        }
        wanted ? wanted->click() : box->reject();
    }

    QString m_answer;
    QTimer m_watch;
};
