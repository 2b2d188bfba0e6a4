// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/PanelIcon.h"

#include "platform/ui/Theme.h"

#include <QFile>

QIcon panelIcon(QString const& name)
{
    constexpr int darkTheme = 16;
    QString const light = QStringLiteral(":/icons/icons/%1.png").arg(name);
    QString const dark = QStringLiteral(":/icons/icons/%1_dark.png").arg(name);
    QString const& path = (g_ThemeColor & darkTheme) && QFile::exists(dark) ? dark : light;
    return QFile::exists(path) ? QIcon(path) : QIcon();
}
