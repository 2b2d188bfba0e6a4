// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <array>

class PushButtonAnimate;

/// A row of three buttons, one for each axis.
class AxisButtons : public QWidget
{
    Q_OBJECT

public:
    explicit AxisButtons(QWidget* parent = nullptr);

    /// text, toolTip  with %1 for the name of the axis
    void setTexts(QString const& text, QString const& toolTip);
    PushButtonAnimate& button(int axis) const { return *m_buttons[std::size_t(axis)]; }

signals:
    void clicked(int axis);

private:
    std::array<PushButtonAnimate*, 3> m_buttons;
};
