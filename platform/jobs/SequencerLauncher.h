// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>

namespace Base {

/// A progress display for one long operation: open from construction to destruction. May be made,
/// driven and destroyed on any thread; the display itself belongs to whoever set the progress sink
/// (ProgressSink.h).
class SequencerLauncher
{
public:
    /// title    plain text shown with the display; copied
    /// range    the value that means "finished"
    /// canStop  accepted for the caller's sake; setCancelEnabled decides
    SequencerLauncher(char const* title, std::uint64_t range, bool canStop);
    ~SequencerLauncher();
    SequencerLauncher(SequencerLauncher const&) = delete;
    SequencerLauncher& operator=(SequencerLauncher const&) = delete;

    /// Shows a value; values beyond the range are allowed.
    ///
    /// throws  Mell::AbortException "Aborting..." if the user has pressed cancel
    void setProgress(std::uint64_t value);

    /// Offers the cancel button. Without it a cancel request is not heeded.
    void setCancelEnabled(bool enabled);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

}  // namespace Base
