// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UBox3.h"

#include <QMatrix4x4>
#include <QRect>

/// Where in a picture there may be something that has the mark.
class MarkedArea
{
public:
    void clear() { *this = {}; }

    /// box  holds what is drawn, in its coordinates; nothing if null
    void add(UBox3<float> const& box, QMatrix4x4 const& toClip);

    /// In pixels of a picture of that size, from the lower left corner; empty if there is nothing.
    ///
    /// margin  around it, as far as the picture goes
    QRect inPicture(QSize size, int margin) const;

private:
    /// In clip space; the depth says nothing.
    UBox3<float> m_area;
    /// Something reaches behind the eye.
    bool m_isWhole = false;
};
