// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/DialogWidgetGroup.h"

#include "platform/ui/DialogWidgetGroup2rd.h"
#include "platform/ui/StoredSettings.h"
#include "platform/ui/Theme.h"

DialogWidgetGroup::DialogWidgetGroup(QString title, QWidget* content, QString key, bool expanded,
                                     QWidget* parent)
    : WidgetGroup(title, false, parent)
{
    setObjectName("DialogFrameGroup");
    int const margin = themePixels("dialogWidegtMargin");
    setContentMargins(margin, margin, margin, margin);
    setWidget(content);
    setExpand(key.isEmpty() ? expanded : storedValue(key, expanded).toBool(), false);
    if (!key.isEmpty())
        connect(this, &WidgetGroup::expandChanged, this,
                [key](bool isExpanded) { storeValue(key, isExpanded); });
}

DialogWidgetGroup2rd::DialogWidgetGroup2rd(QString title, QWidget* content, bool expanded,
                                           QWidget* parent)
    : WidgetGroup(title, true, parent)
{
    setContentMargins(0, 0, 0, themePixels("layoutSpacing"));
    setWidget(content);
    setExpand(expanded, false);
}
