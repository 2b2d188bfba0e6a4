// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QWidget>

class GlyphButton;

/// The title bar of a dialog: its title and the buttons pin, fold, maximise or restore, and close.
class DialogTitleBar : public QWidget
{
    Q_OBJECT

public:
    explicit DialogTitleBar(QWidget* parent);

    void setPinVisible(bool visible);
    void setPinned(bool pinned);
    void setMaximizeVisible(bool visible);
    void setMaximized(bool maximized);
    void setFolded(bool folded);
    void setCloseEnabled(bool enabled);

    QSize sizeHint() const override;

signals:
    void pinClicked(bool pinned);
    void foldClicked();
    void maximizeClicked();
    void restoreClicked();
    void closeClicked();
    /// The user drags the dialog; the way since the last one, in screen pixels.
    void dragged(QPoint way);
    void dropped(QPoint place);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void retranslate();

    GlyphButton* m_pin;
    GlyphButton* m_fold;
    GlyphButton* m_maximize;
    GlyphButton* m_close;
    QPoint m_last;
    bool m_isPressed = false;
    bool m_isDragged = false;
    bool m_isFolded = false;
    bool m_isMaximized = false;
};
