// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/DialogTitleBar.h"

#include "host/ui/GlyphButton.h"
#include "platform/ui/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

DialogTitleBar::DialogTitleBar(QWidget* parent)
    : QWidget(parent),
      m_pin(new GlyphButton(GlyphButton::Pin, this)),
      m_fold(new GlyphButton(GlyphButton::Fold, this)),
      m_maximize(new GlyphButton(GlyphButton::Maximize, this)),
      m_close(new GlyphButton(GlyphButton::Close, this))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(g_pixelSize / 2, 0, g_pixelSize / 3, 0);
    row->setSpacing(0);
    row->addStretch(1);
    for (GlyphButton* const button : {m_pin, m_fold, m_maximize, m_close})
        row->addWidget(button);
    m_pin->setCheckable(true);
    m_maximize->hide();

    connect(m_pin, &QAbstractButton::clicked, this, &DialogTitleBar::pinClicked);
    connect(m_fold, &QAbstractButton::clicked, this, &DialogTitleBar::foldClicked);
    connect(m_close, &QAbstractButton::clicked, this, &DialogTitleBar::closeClicked);
    connect(m_maximize, &QAbstractButton::clicked, this,
            [this] { m_isMaximized ? emit restoreClicked() : emit maximizeClicked(); });
    connect(parent, &QWidget::windowTitleChanged, this, [this] { update(); });
    retranslate();
}

void DialogTitleBar::retranslate()
{
    m_pin->setName(tr("Keep open"));
    m_fold->setName(m_isFolded ? tr("Unfold") : tr("Fold"));
    m_maximize->setName(m_isMaximized ? tr("Restore") : tr("Maximize"));
    m_close->setName(tr("Close"));
}

void DialogTitleBar::setPinVisible(bool visible)
{
    m_pin->setVisible(visible);
}

void DialogTitleBar::setPinned(bool pinned)
{
    m_pin->setChecked(pinned);
}

void DialogTitleBar::setMaximizeVisible(bool visible)
{
    m_maximize->setVisible(visible);
}

void DialogTitleBar::setMaximized(bool maximized)
{
    m_isMaximized = maximized;
    m_maximize->setGlyph(maximized ? GlyphButton::Restore : GlyphButton::Maximize);
    retranslate();
}

void DialogTitleBar::setFolded(bool folded)
{
    m_isFolded = folded;
    m_fold->setGlyph(folded ? GlyphButton::Unfold : GlyphButton::Fold);
    retranslate();
}

void DialogTitleBar::setCloseEnabled(bool enabled)
{
    m_close->setEnabled(enabled);
}

QSize DialogTitleBar::sizeHint() const
{
    return {layout()->sizeHint().width() + g_pixelSize * 6, themePixels("titleHeight")};
}

void DialogTitleBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QFont titleFont = font();
    titleFont.setWeight(QFont::DemiBold);
    painter.setFont(titleFont);
    painter.setPen(themeColor("text"));
    int const left = themePixels("dialogWidegtMargin") + 1;
    int right = width();
    for (QWidget const* const button : findChildren<GlyphButton*>())
        if (button->isVisibleTo(this))
            right = std::min(right, button->x());
    QRect const room(left, 0, right - left, height());
    QString const title = painter.fontMetrics().elidedText(parentWidget()->windowTitle(),
                                                           Qt::ElideRight, room.width());
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, title);
}

void DialogTitleBar::mousePressEvent(QMouseEvent* event)
{
    m_isPressed = event->button() == Qt::LeftButton;
    m_isDragged = false;
    m_last = event->globalPos();
}

void DialogTitleBar::mouseMoveEvent(QMouseEvent* event)
{
    QPoint const way = event->globalPos() - m_last;
    if (!m_isPressed || (!m_isDragged && way.manhattanLength() < QApplication::startDragDistance()))
        return;
    m_isDragged = true;
    m_last = event->globalPos();
    emit dragged(way);
}

void DialogTitleBar::mouseReleaseEvent(QMouseEvent* event)
{
    m_isPressed = false;
    if (m_isDragged)
        emit dropped(event->globalPos());
    m_isDragged = false;
}

void DialogTitleBar::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit foldClicked();
}

void DialogTitleBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
