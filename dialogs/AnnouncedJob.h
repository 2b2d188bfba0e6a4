// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Freecut {

/// The job of a dialog, as the application is told of it: while it runs parts, tools and dialogs
/// are locked. A dialog that goes while its job runs unlocks them too.
class AnnouncedJob
{
public:
    AnnouncedJob() = default;
    ~AnnouncedJob();
    AnnouncedJob(AnnouncedJob const&) = delete;
    AnnouncedJob& operator=(AnnouncedJob const&) = delete;

    void start();
    void end();
    bool isRunning() const { return m_isRunning; }

private:
    bool m_isRunning = false;
};

}  // namespace Freecut
