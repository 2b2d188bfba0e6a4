// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace Base {

/// Where progress goes: the application plugs in one of its own. All operations are called on the
/// thread that runs the job, one launcher at a time or several in turn, so a sink locks what it
/// shares.
class ProgressSink
{
public:
    virtual ~ProgressSink() = default;

    virtual void begin(std::string const& title, std::uint64_t range) = 0;
    virtual void progress(std::uint64_t value) = 0;
    virtual void setCancelEnabled(bool enabled) = 0;
    virtual void end() = 0;

    /// True once the user has asked to cancel the operation that is running. Cheap: it is asked
    /// with every progress value.
    virtual bool isCancelRequested() const = 0;
};

/// Plugs a sink in, or takes it out with null. Launchers that are open keep the sink they began
/// with.
void setProgressSink(std::shared_ptr<ProgressSink> sink);
std::shared_ptr<ProgressSink> progressSink();

}  // namespace Base
