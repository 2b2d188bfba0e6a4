// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/Settings.h"

#include "platform/ui/StoredSettings.h"

#include <QCoreApplication>

namespace {

class HostSettings : public QSettings
{
public:
    HostSettings()
        : QSettings(g_AppSettingFormat, QSettings::UserScope, QCoreApplication::applicationName(),
                    getSettingName())
    {}
};

}  // namespace

QSettings::Format const g_AppSettingFormat = QSettings::IniFormat;

QString getSettingName()
{
    return QStringLiteral("settings");
}

QVariant storedValue(QString const& key, QVariant const& missing)
{
    return HostSettings().value(key, missing);
}

void storeValue(QString const& key, QVariant const& value)
{
    HostSettings().setValue(key, value);
}
