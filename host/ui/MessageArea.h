// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

class QLabel;

/// The text of a message, and a second paragraph below it. As large as the two, up to half of the
/// screen's height; what is longer scrolls, also by the keys.
class MessageArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit MessageArea(QWidget* parent);

    QLabel* text() const { return m_text; }
    /// Hidden while it is empty.
    QLabel* details() const { return m_details; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    int textWidth() const;

    QLabel* m_text;
    QLabel* m_details;
};
