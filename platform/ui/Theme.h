// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>
#include <QVariant>

/// The current theme flags. Bit 16 chooses the pictures for a dark theme.
extern int g_ThemeColor;

/// The base size of the interface in (device independent) pixels, the height of its font; layouts
/// scale from it.
extern int g_pixelSize;

/// A value of the current theme by name: a colour (QColor), or a length as a factor of g_pixelSize
/// (double), such as "dialogWidegtMargin". Invalid for an unknown name.
///
/// Colours   "window", "base", "surface", "header", "text", "mutedText", "disabledText", "border",
///           "controlBorder", "hover", "pressed", "accent", "accentHover", "accentPressed",
///           "accentText", "focus", "link", "selection", "error", "warning", "success", "toolTip",
///           "toolTipText", "caution", "viewTop", "viewBottom"
/// Lengths   "dialogWidegtMargin", "layoutSpacing", "controlHeight", "iconSize", "cornerRadius",
///           "titleHeight", "groupHeight", "dialogWidth"
QVariant binderTheme(QString const& key);

/// A colour of the current theme.
inline QColor themeColor(QString const& key)
{
    return binderTheme(key).value<QColor>();
}

/// A length of the current theme in pixels, truncated.
inline int themePixels(QString const& key)
{
    return static_cast<int>(binderTheme(key).toDouble() * g_pixelSize);
}
