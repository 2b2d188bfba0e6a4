// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogSettings.h"

#include "platform/ui/Settings.h"

#include <QCoreApplication>

namespace Freecut::DialogSettings {

QVariant value(QString const& key, QVariant const& initial)
{
    QSettings const settings(g_AppSettingFormat, QSettings::UserScope,
                             QCoreApplication::applicationName(), getSettingName());
    return settings.value(key, initial);
}

void store(QString const& key, QVariant const& value)
{
    QSettings settings(g_AppSettingFormat, QSettings::UserScope,
                       QCoreApplication::applicationName(), getSettingName());
    settings.setValue(key, value);
}

}  // namespace Freecut::DialogSettings
