// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/QuestionForm.h"

#include "platform/ui/Theme.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

void layOutQuestion(QDialog& dialog, QFormLayout* fields, QString const& accept,
                    QString const& cancel)
{
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    buttons->button(QDialogButtonBox::Ok)->setText(accept);
    buttons->button(QDialogButtonBox::Cancel)->setText(cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* const layout = new QVBoxLayout(&dialog);
    layout->addLayout(fields);
    layout->addWidget(buttons);
    int const margin = themePixels("dialogWidegtMargin");
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(themePixels("layoutSpacing") * 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}
