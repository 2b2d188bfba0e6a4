// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGridLayout>

/// A grid without margins and with the theme's spacing.
class MellGridLayout : public QGridLayout
{
    Q_OBJECT

public:
    explicit MellGridLayout(QWidget* parent = nullptr);
};
