// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace Base {
class GLView;
}

/// Keeps the mouse tools of modules as they are while a job runs, which may read what they edit:
/// such a tool gets no presses and keys, and no other one takes its place. Whoever owns it may end
/// it all the same. Looking, turning and the host's own tools, for selecting and picking points,
/// stay free.
class ToolLock : public QObject
{
    Q_OBJECT

public:
    /// The view becomes the parent.
    explicit ToolLock(Base::GLView& view);

    /// Escape: ends what the mouse drags, which falls back to where it began, or else the running
    /// tool. False if there is neither.
    bool escape();

signals:
    /// What was wanted of the running tool has to wait; one sentence for the user.
    void refused(QString const& reason);

private:
    bool isModulesToolRunning() const;
    void refuse();

    Base::GLView& m_view;
};
