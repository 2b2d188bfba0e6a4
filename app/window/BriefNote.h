// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Says what became of a command for which no message box is worth its click: on the status line
/// for a while, and in the log for good. Nothing for an empty text.
void noteBriefly(QString const& text);
