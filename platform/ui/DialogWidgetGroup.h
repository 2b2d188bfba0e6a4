// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/WidgetGroup.h"

/// A top-level group of a dialog, with the object name "DialogFrameGroup". What the user expands
/// and collapses is kept in the settings.
class DialogWidgetGroup : public WidgetGroup
{
    Q_OBJECT

public:
    /// content   owned by the group from now on
    /// key       the settings' key for the state, such as "SectionCutDlg/Plane"; empty keeps none
    /// expanded  the state where none is stored
    DialogWidgetGroup(QString title, QWidget* content, QString key, bool expanded, QWidget* parent);
};
