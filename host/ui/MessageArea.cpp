// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/MessageArea.h"

#include "platform/ui/Theme.h"

#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// In average letters.
constexpr int leastWidth = 40;
constexpr int mostWidth = 64;

QLabel* addParagraph(QVBoxLayout* column)
{
    auto* const label = new QLabel(column->parentWidget());
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(label);
    return label;
}

}  // namespace

MessageArea::MessageArea(QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The scroll bar would take keys that belong to the buttons.
    setFocusPolicy(Qt::NoFocus);
    auto* const content = new QWidget(this);
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(g_pixelSize);
    m_text = addParagraph(column);
    m_details = addParagraph(column);
    m_details->setObjectName(QStringLiteral("Details"));
    m_details->hide();
    column->addStretch(1);
    setWidget(content);
    // The box's ground shows through.
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

int MessageArea::textWidth() const
{
    int const letter = fontMetrics().averageCharWidth();
    int wanted = 0;
    for (QLabel const* const paragraph : {m_text, m_details})
        wanted = std::max(wanted, fontMetrics().size(0, paragraph->text()).width() + letter);
    return std::clamp(wanted, leastWidth * letter, mostWidth * letter);
}

QSize MessageArea::sizeHint() const
{
    int const width = textWidth();
    int const wanted = widget()->layout()->totalHeightForWidth(width);
    int const most = screen() ? screen()->availableGeometry().height() / 2 : wanted;
    bool const scrolls = wanted > most;
    return {width + (scrolls ? verticalScrollBar()->sizeHint().width() : 0),
            std::min(wanted, most)};
}

QSize MessageArea::minimumSizeHint() const
{
    return sizeHint();
}
