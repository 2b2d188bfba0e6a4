// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {

/// A view that shows a document.
///
/// thread  the user interface thread
class GLView
{
public:
    virtual ~GLView() = default;

    /// Repaints.
    virtual void redraw() = 0;
};

}  // namespace Base
