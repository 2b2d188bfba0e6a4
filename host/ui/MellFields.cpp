// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/MellComboBox.h"
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

/// The wheel scrolls the page unless the user works in this very field.
bool isForField(QWidget const& field, QWheelEvent* event)
{
    if (!field.hasFocus())
        event->ignore();
    return field.hasFocus();
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
    if (isForField(*this, event))
        QSpinBox::wheelEvent(event);
}

MellComboBox::MellComboBox(QWidget* parent) : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void MellComboBox::wheelEvent(QWheelEvent* event)
{
    if (isForField(*this, event))
        QComboBox::wheelEvent(event);
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
