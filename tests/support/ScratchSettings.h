// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/DisplayUnit.h"
#include "platform/ui/Settings.h"

#include <QCoreApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

/// Empty settings of a test's own.
class ScratchSettings
{
public:
    ScratchSettings()
    {
        QSettings::setPath(g_AppSettingFormat, QSettings::UserScope, m_folder.path());
        DisplayUnit::instance().readStored();
    }

    QVariant value(QString const& key) const { return open()->value(key); }
    void setValue(QString const& key, QVariant const& value) const { open()->setValue(key, value); }

private:
    static std::unique_ptr<QSettings> open()
    {
        return std::make_unique<QSettings>(g_AppSettingFormat, QSettings::UserScope,
                                           QCoreApplication::applicationName(), getSettingName());
    }

    QTemporaryDir m_folder;
};
