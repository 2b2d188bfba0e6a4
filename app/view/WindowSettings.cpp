// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/view/WindowSettings.h"

#include "platform/ui/StoredSettings.h"

bool WindowSettings::flag(char const* key, bool byDefault)
{
    QString const text = storedValue(key).toString();
    if (text == "true")
        return true;
    return text == "false" ? false : byDefault;
}

void WindowSettings::setFlag(char const* key, bool value)
{
    storeValue(key, value);
}

QByteArray WindowSettings::bytes(char const* key)
{
    return storedValue(key).toByteArray();
}

void WindowSettings::setBytes(char const* key, QByteArray const& value)
{
    storeValue(key, value);
}
