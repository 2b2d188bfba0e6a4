// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>

#include <deque>
#include <functional>

class DrawDevice;

namespace Base {
class GLView;
}

/// What is brought to the device of a view in small steps between events, one thing after the
/// other, so that the window goes on answering.
///
/// thread  the user interface thread
class DeviceWork
{
public:
    /// Some milliseconds of work, with the view's context current. Returns whether all is done; the
    /// step is then dropped, with the context current too.
    using Step = std::function<bool(DrawDevice&)>;

    explicit DeviceWork(Base::GLView& view);

    void add(Step step);
    bool isEmpty() const { return m_steps.empty(); }
    /// Does all that is left at once.
    void finish();
    /// With the context current: drops what is not done.
    void clear();

private:
    void next();

    Base::GLView& m_view;
    std::deque<Step> m_steps;
    QTimer m_timer;
};
