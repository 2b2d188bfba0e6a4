// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/NavigationStyle.h"

#include <QObject>
#include <QSizeF>

namespace Mesh {
class GLView;
}

/// How a view is used: which mouse buttons turn and move it, and how large its build plate is. Kept
/// in the settings; what makes no sense there counts as the default.
class ViewPreferences : public QObject
{
    Q_OBJECT

public:
    using Preset = Base::NavigationStyle::Preset;

    static constexpr double smallestPlateMm = 10;
    static constexpr double largestPlateMm = 5000;
    static constexpr double defaultPlateMm = 200;

    /// Puts the stored choices into effect. The view outlives this.
    explicit ViewPreferences(Mesh::GLView& view, QObject* parent = nullptr);

    Preset navigation() const { return m_navigation; }
    /// Stores the choice and puts it into effect.
    void setNavigation(Preset preset);

    /// Width and depth in millimetres.
    QSizeF plateSize() const { return m_plate; }
    /// Stores the size, brought into the limits, and puts it into effect.
    void setPlateSize(QSizeF const& millimetres);

private:
    void apply();

    Mesh::GLView& m_view;
    Preset m_navigation = Preset::TurnByRight;
    QSizeF m_plate;
};
