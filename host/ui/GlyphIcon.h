// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/ui/GlyphButton.h"

#include <QIcon>

/// A sign as an icon that is drawn anew at every size, in the colours of the theme at that moment.
QIcon glyphIcon(GlyphButton::Glyph glyph);
