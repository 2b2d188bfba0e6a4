// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/GroupHeader.h"

#include "host/ui/StyleShapes.h"
#include "platform/ui/Theme.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QPainter>

GroupHeader::GroupHeader(bool isSecondLevel, QWidget* parent)
    : QAbstractButton(parent), m_isSecondLevel(isSecondLevel)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    int const side = isSecondLevel ? 0 : themePixels("dialogWidegtMargin");
    m_margins = QMargins(side, 0, side, 0);
}

void GroupHeader::setExpanded(bool expanded)
{
    m_isExpanded = expanded;
    update();
}

void GroupHeader::setArrowVisible(bool visible)
{
    m_isArrowVisible = visible;
    placeCheckBox();
    update();
}

void GroupHeader::setClickable(bool clickable)
{
    m_isClickable = clickable;
    setFocusPolicy(clickable ? Qt::TabFocus : Qt::NoFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents, !clickable && !m_checkBox);
    update();
}

void GroupHeader::setTextMargins(QMargins const& margins)
{
    m_margins = margins;
    updateGeometry();
    placeCheckBox();
    update();
}

QCheckBox* GroupHeader::checkBox()
{
    if (!m_checkBox) {
        m_checkBox = new QCheckBox(this);
        m_checkBox->setChecked(true);
        setAttribute(Qt::WA_TransparentForMouseEvents, false);
        placeCheckBox();
        m_checkBox->show();
    }
    return m_checkBox;
}

void GroupHeader::removeCheckBox()
{
    delete m_checkBox;
    m_checkBox = nullptr;
    update();
}

void GroupHeader::placeCheckBox()
{
    if (!m_checkBox)
        return;
    QSize const size = m_checkBox->sizeHint();
    int const left = m_margins.left() + (m_isArrowVisible ? g_pixelSize * 4 / 3 : 0);
    m_checkBox->setGeometry(left, (height() - size.height()) / 2, size.width(), size.height());
}

QFont GroupHeader::titleFont() const
{
    QFont result = font();
    result.setWeight(QFont::DemiBold);
    return result;
}

int GroupHeader::textStart() const
{
    int const arrow = m_isArrowVisible ? g_pixelSize * 4 / 3 : 0;
    int const box = m_checkBox ? m_checkBox->sizeHint().width() + g_pixelSize / 3 : 0;
    return m_margins.left() + arrow + box;
}

QSize GroupHeader::sizeHint() const
{
    int const width = QFontMetrics(titleFont()).horizontalAdvance(text());
    int const height = m_isSecondLevel ? themePixels("controlHeight") : themePixels("groupHeight");
    return {textStart() + width + m_margins.right() + 2,
            height + m_margins.top() + m_margins.bottom()};
}

QSize GroupHeader::minimumSizeHint() const
{
    return {textStart() + g_pixelSize * 4, sizeHint().height()};
}

void GroupHeader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    bool const isHovered = m_isClickable && isEnabled() && underMouse();
    if (!m_isSecondLevel)
        painter.fillRect(rect(), themeColor(isHovered ? "hover" : "header"));
    else if (isHovered)
        StyleShapes::roundedBox(painter, rect(), themeColor("hover"), {});
    QColor const colour = themeColor(!isEnabled()      ? "disabledText"
                                     : m_isSecondLevel ? "mutedText"
                                                       : "text");
    QRect const room = rect().marginsRemoved(m_margins);
    if (m_isArrowVisible && m_isClickable)
        StyleShapes::chevron(painter, QRect(room.left(), room.top(), g_pixelSize, room.height()),
                             m_isExpanded ? Qt::BottomEdge : Qt::RightEdge, colour);
    painter.setFont(titleFont());
    painter.setPen(colour);
    QRect const textRoom = QRect(QPoint(textStart(), room.top()), room.bottomRight());
    painter.drawText(textRoom, Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, textRoom.width()));
    if (hasFocus())
        StyleShapes::focusRing(painter, rect());
}

void GroupHeader::resizeEvent(QResizeEvent*)
{
    placeCheckBox();
}

void GroupHeader::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}
