// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string>

/// The text as UTF-8.
inline std::string q2s(QString const& text)
{
    return text.toStdString();
}
