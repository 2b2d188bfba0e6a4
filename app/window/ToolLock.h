// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace Base {
class GLView;
}

/// While a job runs, keeps the keys and the left button of the mouse from the tools of modules,
/// which could move what the job cuts with. Turning, moving and zooming the view stay free, and so
/// do selecting and picking points.
class ToolLock : public QObject
{
    Q_OBJECT

public:
    /// The view becomes the parent.
    explicit ToolLock(Base::GLView& view);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isModulesToolRunning() const;

    Base::GLView& m_view;
};
