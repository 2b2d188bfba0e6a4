// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/Settings.h"

#include <QCoreApplication>
#include <QSettings>
#include <QVariant>

/// The value under a key of the host's settings.
inline QVariant storedValue(QString const& key, QVariant const& missing = {})
{
    QSettings const settings(g_AppSettingFormat, QSettings::UserScope,
                             QCoreApplication::applicationName(), getSettingName());
    return settings.value(key, missing);
}

inline void storeValue(QString const& key, QVariant const& value)
{
    QSettings settings(g_AppSettingFormat, QSettings::UserScope,
                       QCoreApplication::applicationName(), getSettingName());
    settings.setValue(key, value);
}
