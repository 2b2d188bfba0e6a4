// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <memory>
#include <vector>

namespace Base {
class GLView;
}

namespace Freecut {

class RubberRect;

/// The marks of the points that were picked so far, in a view.
class PickMarkers
{
public:
    PickMarkers();
    /// The view of the marks still exists.
    ~PickMarkers();
    PickMarkers(PickMarkers const&) = delete;
    PickMarkers& operator=(PickMarkers const&) = delete;

    /// Marks a point, after those that are marked.
    void add(Base::GLView& view, UPoint3<float> const& point);
    /// Takes all marks out of their view.
    void clear();

    std::size_t size() const { return m_markers.size(); }
    /// The marked points, in order.
    std::vector<UPoint3<float>> points() const;

private:
    Base::GLView* m_view = nullptr;
    std::vector<std::unique_ptr<RubberRect>> m_markers;
};

}  // namespace Freecut
