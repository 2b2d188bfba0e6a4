// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/WindowSettings.h"

#include "platform/ui/Settings.h"

#include <QCoreApplication>

namespace {

class Settings : public QSettings
{
public:
    Settings()
        : QSettings(g_AppSettingFormat, QSettings::UserScope, QCoreApplication::applicationName(),
                    getSettingName())
    {}
};

}  // namespace

bool WindowSettings::flag(char const* key, bool byDefault)
{
    QString const text = Settings().value(key).toString();
    if (text == "true")
        return true;
    return text == "false" ? false : byDefault;
}

void WindowSettings::setFlag(char const* key, bool value)
{
    Settings().setValue(key, value);
}

QByteArray WindowSettings::bytes(char const* key)
{
    return Settings().value(key).toByteArray();
}

void WindowSettings::setBytes(char const* key, QByteArray const& value)
{
    Settings().setValue(key, value);
}
