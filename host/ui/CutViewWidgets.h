// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/CutView.h"
#include "platform/ui/CutViewSlider.h"
#include "platform/ui/MellQuantitySpinBox.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QToolButton>

/// What stands on the page of the live cut.
struct CutView::Widgets
{
    QCheckBox* active;
    QLabel* acrossLabel;
    QButtonGroup* axes;
    QWidget* normalRow;
    MellQuantitySpinBox* normal[3];
    QLabel* normalHint;
    QLabel* positionLabel;
    CutViewSlider* slider;
    MellQuantitySpinBox* position;
    QToolButton* flip;
    QCheckBox* caps;
};
