// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBoxLayout>

/// A column without margins and with the theme's spacing.
class MellVBoxLayout : public QVBoxLayout
{
    Q_OBJECT

public:
    explicit MellVBoxLayout(QWidget* parent = nullptr);
};
