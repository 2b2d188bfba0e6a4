// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/Settings.h"

QSettings::Format const g_AppSettingFormat = QSettings::IniFormat;

QString getSettingName()
{
    return QStringLiteral("settings");
}
