// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

/// A line edit of the height of the other fields.
class MellLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit MellLineEdit(QWidget* parent = nullptr);
    explicit MellLineEdit(QString const& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
};
