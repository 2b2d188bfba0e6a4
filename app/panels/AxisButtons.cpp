// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/AxisButtons.h"

#include "platform/ui/MellHBoxLayout.h"
#include "platform/ui/PushButtonAnimate.h"

AxisButtons::AxisButtons(QWidget* parent) : QWidget(parent)
{
    auto* const layout = new MellHBoxLayout(this);
    layout->setContentsMargins({});
    for (int axis = 0; axis < 3; ++axis) {
        auto* const button = new PushButtonAnimate({}, this);
        layout->addWidget(button, 1);
        connect(button, &QPushButton::clicked, this, [this, axis] { emit clicked(axis); });
        m_buttons[std::size_t(axis)] = button;
    }
}

void AxisButtons::setTexts(QString const& text, QString const& toolTip)
{
    for (int axis = 0; axis < 3; ++axis) {
        QString const name(QChar('X' + axis));
        m_buttons[std::size_t(axis)]->setText(text.arg(name));
        m_buttons[std::size_t(axis)]->setToolTip(toolTip.arg(name));
        m_buttons[std::size_t(axis)]->setAccessibleName(toolTip.arg(name));
    }
}
