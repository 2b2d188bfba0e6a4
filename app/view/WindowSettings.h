// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

/// What the window remembers from one run to the next.
namespace WindowSettings {

/// A value that is neither true nor false counts as not there.
bool flag(char const* key, bool byDefault);
void setFlag(char const* key, bool value);

QByteArray bytes(char const* key);
void setBytes(char const* key, QByteArray const& value);

}  // namespace WindowSettings
