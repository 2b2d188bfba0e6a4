// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

/// The icon of that name, such as "app_eye", in its form for the current theme; null if there is no
/// such icon, so that a text has to do.
QIcon panelIcon(QString const& name);
