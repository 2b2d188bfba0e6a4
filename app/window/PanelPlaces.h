// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <Qt>

class QDockWidget;
class QWidget;

namespace Mesh {
class GLView;
}

/// Where panels stand around the view of a window: all that panels and commands know of the window
/// that puts them together.
///
/// thread  the user interface thread
class PanelPlaces
{
public:
    virtual Mesh::GLView& view() const = 0;

    /// Puts a panel, which the window then owns, into a dock.
    ///
    /// name  what the window remembers its place by
    virtual QDockWidget* addPanel(QWidget* panel, QString const& name, Qt::DockWidgetArea area) = 0;
    /// Puts a widget to the right of the view.
    virtual void addBesideView(QWidget* widget) = 0;
    /// Puts docks and tool bars where they are at first; the window stays where it is.
    virtual void resetLayout() = 0;

protected:
    ~PanelPlaces() = default;
};
