// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPoint>

namespace Base {
class CommandManager;
}
namespace Mesh {
class GLView;
}

/// The menu of a right click in the view while no tool runs: on a part what can be done with the
/// selected parts, beside them what concerns the view. What makes no sense for the selection is left
/// out; what only a running job forbids stands there and says so.
class ViewMenu : public QObject
{
    Q_OBJECT

public:
    /// The view outlives this.
    ViewMenu(Mesh::GLView& view, Base::CommandManager& manager);

signals:
    /// Before the menu appears, for whoever brings its entries in line.
    void aboutToShow();

private:
    void show(QPoint position, bool isOnPart);

    Mesh::GLView& m_view;
    Base::CommandManager& m_manager;
};
