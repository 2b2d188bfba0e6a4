// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

namespace Freecut {

/// What a person edits beside a tool, in the tool's dialog or by clicks that the tool hands on, and
/// takes back together with the tool's own edits.
class EditsBeside
{
public:
    virtual ~EditsBeside() = default;

    /// What has been edited; null for nothing. Never changed afterwards: an edit makes another one,
    /// so that it is the same only if it is the same object.
    virtual std::shared_ptr<void const> edits() const = 0;
    /// Takes up what edits() once gave.
    virtual void setEdits(std::shared_ptr<void const> const& edits) = 0;
};

}  // namespace Freecut
