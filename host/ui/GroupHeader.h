// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QMargins>

class QCheckBox;

/// The title of a group: a bar with an arrow, or plain text on the second level.
class GroupHeader : public QAbstractButton
{
    Q_OBJECT

public:
    GroupHeader(bool isSecondLevel, QWidget* parent);

    void setExpanded(bool expanded);
    void setArrowVisible(bool visible);
    void setClickable(bool clickable);
    void setTextMargins(QMargins const& margins);
    /// The check box, made on demand.
    QCheckBox* checkBox();
    bool hasCheckBox() const { return m_checkBox != nullptr; }
    void removeCheckBox();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QFont titleFont() const;
    int textStart() const;
    void placeCheckBox();

    bool m_isSecondLevel;
    bool m_isExpanded = true;
    bool m_isArrowVisible = true;
    bool m_isClickable = true;
    QMargins m_margins;
    QCheckBox* m_checkBox = nullptr;
};
