// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QStringList>

class QLabel;
class QToolButton;

/// A strip above the view with messages that nobody has to answer; hidden without one.
class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Adds a message to those that are shown, unless it is one of them.
    void add(QString const& message);
    QString text() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void dismiss();
    void retranslate();

    QStringList m_messages;
    QLabel* m_text;
    QToolButton* m_close;
};
