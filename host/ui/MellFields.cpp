// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/MellLineEdit.h"
#include "platform/ui/MellSpinBox.h"
#include "platform/ui/Theme.h"

#include <QWheelEvent>

#include <algorithm>

namespace {

QSize ofControlHeight(QSize const& size)
{
    return {size.width(), std::max(size.height(), themePixels("controlHeight"))};
}

}  // namespace

MellSpinBox::MellSpinBox(QWidget* parent) : QSpinBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

QSize MellSpinBox::sizeHint() const
{
    return ofControlHeight(QSpinBox::sizeHint());
}

QSize MellSpinBox::minimumSizeHint() const
{
    return ofControlHeight(QSpinBox::minimumSizeHint());
}

void MellSpinBox::wheelEvent(QWheelEvent* event)
{
    // The wheel scrolls the page unless the user works in this very field.
    if (hasFocus())
        QSpinBox::wheelEvent(event);
    else
        event->ignore();
}

MellLineEdit::MellLineEdit(QWidget* parent) : QLineEdit(parent) {}

MellLineEdit::MellLineEdit(QString const& text, QWidget* parent) : QLineEdit(text, parent) {}

QSize MellLineEdit::sizeHint() const
{
    return ofControlHeight(QLineEdit::sizeHint());
}

QSize MellLineEdit::minimumSizeHint() const
{
    return ofControlHeight(QLineEdit::minimumSizeHint());
}
