// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <vector>

/// The room in which a printer builds: on the plate, centred at the origin, from height 0 on.
struct BuildVolume
{
    QString name;
    double width = 0;
    double depth = 0;
    double height = 0;

    static constexpr double defaultHeightMm = 200;

    /// The one in the settings; without a name. What makes no sense there counts as the default.
    static BuildVolume stored();
    /// Stores the height; width and depth are those of the plate, ViewPreferences'.
    static void storeHeight(double millimetres);

    /// What the program comes with, and then what the user's own file has.
    static std::vector<BuildVolume> known();
    /// The user's own file, whether it is there or not.
    static QString ownFile();
    /// The volumes of a text: "name;width;depth;height" in each line, with points as decimal signs.
    /// Lines that begin with # are remarks; others that are no volume are left out.
    static std::vector<BuildVolume> read(QString const& text);
};
