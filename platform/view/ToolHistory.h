// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace Base {

/// The edits that a user has made with a running mouse tool. They are no steps of the document: they
/// can be taken back and done again one by one as long as the tool runs, and go with it.
///
/// While there are any, undo and redo are the tool's. An application asks here first, and turns to
/// the document only while the tool has nothing of its own.
///
/// thread  the user interface thread
class ToolHistory
{
public:
    virtual ~ToolHistory() = default;

    /// Whether there is a step in either direction.
    virtual bool isInUse() const = 0;
    /// One translated sentence that says why there is nothing to take back, or to do again, now;
    /// empty if there is.
    virtual QString whyNoUndo() const = 0;
    virtual QString whyNoRedo() const = 0;

    // Nothing happens where there is a reason against it. A drag that runs is given up first.

    virtual void undo() = 0;
    virtual void redo() = 0;
};

}  // namespace Base
