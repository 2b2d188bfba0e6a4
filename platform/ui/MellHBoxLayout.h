// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBoxLayout>

/// A row without margins and with the theme's spacing.
class MellHBoxLayout : public QHBoxLayout
{
    Q_OBJECT

public:
    explicit MellHBoxLayout(QWidget* parent = nullptr);
};
