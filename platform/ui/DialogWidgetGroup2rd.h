// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/WidgetGroup.h"

/// A second-level group, inside a DialogWidgetGroup. Its state is not kept.
class DialogWidgetGroup2rd : public WidgetGroup
{
    Q_OBJECT

public:
    /// content  owned by the group from now on
    DialogWidgetGroup2rd(QString title, QWidget* content, bool expanded, QWidget* parent);
};
