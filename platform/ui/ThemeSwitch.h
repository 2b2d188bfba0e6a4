// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The user's choice of theme and interface size, kept in the settings, and its effect on the whole
/// application: palette, style, style sheet, font, g_ThemeColor, g_pixelSize, the actions'
/// pictures, and signalThemeColorChanged of the main window.
///
/// thread  the user interface thread; needs a QApplication
class ThemeSwitch
{
public:
    enum class Choice
    {
        System,
        Light,
        Dark
    };

    static constexpr int smallestSize = 9;
    static constexpr int largestSize = 40;

    /// Puts the stored choices into effect; once, before the first window is made. Stored values
    /// that make no sense count as not stored.
    static void applyStored();

    /// What is stored; System if nothing is.
    static Choice choice();
    /// Stores the choice and puts it into effect. System takes the side, light or dark, that the
    /// system's palette had when the application started.
    static void setTheme(Choice choice);

    /// The stored base size in pixels; 0 if the system's font decides.
    static int interfaceSize();
    /// Stores the base size and puts it into effect; 0 for that of the system's font. Other values
    /// are brought between smallestSize and largestSize.
    static void setInterfaceSize(int pixels);

    /// Whether the theme in effect is dark.
    static bool isDark();
};
