// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/PushButtonAnimate.h"

#include <QEvent>
#include <QPropertyAnimation>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int longestFade = 120;

}  // namespace

PushButtonAnimate::PushButtonAnimate(QWidget* parent) : PushButtonAnimate(QString(), parent) {}

PushButtonAnimate::PushButtonAnimate(QString const& text, QWidget* parent)
    : QPushButton(text, parent)
{
    setAutoDefault(false);
}

void PushButtonAnimate::setHoverShare(double share)
{
    m_hoverShare = share;
    update();
}

bool PushButtonAnimate::event(QEvent* event)
{
    if (event->type() == QEvent::HoverEnter)
        fadeTo(1);
    else if (event->type() == QEvent::HoverLeave || event->type() == QEvent::Hide)
        fadeTo(0);
    return QPushButton::event(event);
}

void PushButtonAnimate::fadeTo(double share)
{
    int const duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    if (duration <= 0 || !isVisible()) {
        setHoverShare(share);
        return;
    }
    auto* const fade = new QPropertyAnimation(this, "hoverShare", this);
    fade->setDuration(std::min(duration, longestFade));
    fade->setEndValue(share);
    fade->start(QAbstractAnimation::DeleteWhenStopped);
}
