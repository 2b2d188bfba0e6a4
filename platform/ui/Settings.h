// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSettings>
#include <QString>

/// The application part of the host's settings, to be used with the application's name as the
/// organisation part, in user scope and in g_AppSettingFormat.
QString getSettingName();

/// Text files with sections, the same on every system.
extern QSettings::Format const g_AppSettingFormat;
