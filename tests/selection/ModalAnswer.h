// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/MellMessageBox.h"

#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QStringList>
#include <QTimer>

/// Answers message boxes and menus as they come up, and keeps what they said.
class ModalAnswer : public QObject
{
public:
    /// answer  the text of the button, or of the menu's action, that is chosen; none is there: it
    ///         is closed
    explicit ModalAnswer(QString answer = "OK") : m_answer(std::move(answer))
    {
        connect(&m_timer, &QTimer::timeout, this, [this] { look(); });
        m_timer.start(5);
    }

    void setAnswer(QString const& answer) { m_answer = answer; }

    /// "Title: text" of each box, and the actions of each menu, joined.
    QStringList seen;

private:
    void look()
    {
        if (auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
            answerMenu(*menu);
        else if (auto* const box = qobject_cast<MellMessageBox*>(QApplication::activeModalWidget()))
            answerBox(*box);
    }
    void answerMenu(QMenu& menu)
    {
        QStringList texts;
        QAction* chosen = nullptr;
        for (QAction* const action : menu.actions()) {
            texts << action->text();
            if (action->text() == m_answer)
                chosen = action;
        }
        seen << texts.join("|");
        menu.close();
        if (chosen)
            chosen->trigger();
    }
    void answerBox(MellMessageBox& box)
    {
        seen << box.windowTitle() + ": " + box.text();
        for (QPushButton* const button : box.findChildren<QPushButton*>())
            if (button->text().remove('&') == m_answer) {
                button->click();
                return;
            }
        box.reject();
    }

    QString m_answer;
    QTimer m_timer;
};
