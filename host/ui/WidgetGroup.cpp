// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/WidgetGroup.h"

#include "host/ui/GroupHeader.h"

#include <QCheckBox>
#include <QEvent>
#include <QPropertyAnimation>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int longestSlide = 150;

}  // namespace

WidgetGroup::WidgetGroup(QWidget* parent) : WidgetGroup(QString(), false, parent) {}

WidgetGroup::WidgetGroup(QString const& title, QWidget* parent) : WidgetGroup(title, false, parent)
{}

WidgetGroup::WidgetGroup(QString const& title, bool isSecondLevel, QWidget* parent)
    : QFrame(parent),
      m_header(new GroupHeader(isSecondLevel, this)),
      m_layout(new QVBoxLayout(this)),
      m_room(new QWidget(this)),
      m_roomLayout(new QVBoxLayout(m_room))
{
    setTitleName(title);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->addWidget(m_header);
    m_layout->addWidget(m_room);
    m_roomLayout->setContentsMargins(0, 0, 0, 0);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    connect(m_header, &QAbstractButton::clicked, this, [this] {
        if (!m_isExpandable)
            return;
        setExpand(!m_isExpanded, true);
        emit expandChanged(m_isExpanded);
    });
}

void WidgetGroup::setTitleName(QString const& title)
{
    m_header->setText(title);
    m_header->setAccessibleName(title);
    m_header->updateGeometry();
}

QString WidgetGroup::titleName() const
{
    return m_header->text();
}

void WidgetGroup::setWidget(QWidget* content)
{
    if (content == m_content)
        return;
    delete m_content;
    m_content = content;
    if (!content)
        return;
    m_roomLayout->insertWidget(0, content);
    if (m_header->hasCheckBox())
        content->setEnabled(isChecked());
}

void WidgetGroup::setExpand(bool expanded, bool animated)
{
    bool const wanted = expanded || !m_isExpandable;
    if (wanted == m_isExpanded)
        return;
    m_isExpanded = wanted;
    m_header->setExpanded(wanted);
    delete m_animation;
    m_animation = nullptr;
    int const duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    if (animated && isVisible() && duration > 0)
        slide(wanted, std::min(duration, longestSlide));
    else
        showContent(wanted);
}

void WidgetGroup::showContent(bool shown)
{
    m_room->setMaximumHeight(QWIDGETSIZE_MAX);
    m_room->setVisible(shown);
}

void WidgetGroup::slide(bool open, int duration)
{
    int const full = m_room->sizeHint().height();
    int const from = m_room->isVisible() ? m_room->height() : 0;
    m_room->setMaximumHeight(from);
    m_room->show();
    m_animation = new QPropertyAnimation(m_room, "maximumHeight", this);
    m_animation->setDuration(duration);
    m_animation->setStartValue(from);
    m_animation->setEndValue(open ? full : 0);
    m_animation->setEasingCurve(QEasingCurve::OutCubic);
    connect(m_animation, &QAbstractAnimation::finished, this, [this] {
        m_animation->deleteLater();
        m_animation = nullptr;
        showContent(m_isExpanded);
    });
    m_animation->start();
}

void WidgetGroup::setExpandable(bool expandable)
{
    m_isExpandable = expandable;
    m_header->setClickable(expandable);
    if (!expandable)
        setExpand(true, false);
}

void WidgetGroup::setIconVisible(bool visible)
{
    m_header->setArrowVisible(visible);
}

void WidgetGroup::setCheckable(bool checkable)
{
    if (checkable == m_header->hasCheckBox())
        return;
    if (checkable) {
        connect(m_header->checkBox(), &QCheckBox::toggled, this, [this](bool checked) {
            if (m_content)
                m_content->setEnabled(checked);
            emit toggled(checked);
        });
    } else {
        m_header->removeCheckBox();
        if (m_content)
            m_content->setEnabled(true);
    }
}

bool WidgetGroup::isChecked() const
{
    return !m_header->hasCheckBox() || m_header->checkBox()->isChecked();
}

void WidgetGroup::setChecked(bool checked)
{
    if (m_header->hasCheckBox())
        m_header->checkBox()->setChecked(checked);
}

void WidgetGroup::addStretch()
{
    m_roomLayout->addStretch(1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void WidgetGroup::setTitleContentsMargins(int left, int top, int right, int bottom)
{
    m_header->setTextMargins({left, top, right, bottom});
}

void WidgetGroup::setContentMargins(int left, int top, int right, int bottom)
{
    m_roomLayout->setContentsMargins(left, top, right, bottom);
}

void WidgetGroup::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_header->updateGeometry();
}
