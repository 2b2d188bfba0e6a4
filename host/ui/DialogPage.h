// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

class QVBoxLayout;

/// The main page of a dialog: as large as its content where there is room, else scrolled.
class DialogPage : public QScrollArea
{
    Q_OBJECT

public:
    explicit DialogPage(QWidget* parent);

    /// The layout of the content, above empty room.
    QVBoxLayout* contentLayout() const { return m_contentLayout; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QVBoxLayout* m_contentLayout;
};
