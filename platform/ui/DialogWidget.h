// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/Dialog.h"

/// A dialog that DialogWindowManager can hold. Its factory returns it as a pointer to the whole
/// object, whose first base is this class.
class DialogWidget : public Dialog
{
    Q_OBJECT

public:
    DialogWidget(QWidget* parent, bool modal);

    /// Puts all fields back to what they were at first; here there are none.
    virtual void resetUI();
};
