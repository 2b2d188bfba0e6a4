// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/PartSpread.h"

#include "host/view/MeshViewProvider.h"
#include "platform/document/DocumentObject.h"

#include <algorithm>
#include <limits>

namespace {

using Vector = UVector3<double>;

Vector middleOf(UBox3<float> const& box)
{
    Vector middle;
    for (int axis = 0; axis < 3; ++axis)
        middle[axis] = (double(box.min[axis]) + double(box.max[axis])) / 2;
    return middle;
}

}  // namespace

void spreadParts(std::vector<Base::ViewProvider*> const& providers, double share)
{
    UBox3<float> all;
    std::vector<Mesh::ViewProvider*> shown;
    for (Base::ViewProvider* const provider : providers) {
        auto* const part = dynamic_cast<Mesh::ViewProvider*>(provider);
        if (!part)
            continue;
        part->setApart({});
        UBox3<float> const box = part->getObject()->getBoundingBox();
        if (share == 0 || !part->isShow() || box.Isnullptr())
            continue;
        all.Add(box);
        shown.push_back(part);
    }
    double lowest = std::numeric_limits<double>::infinity();
    for (Mesh::ViewProvider* const part : shown) {
        part->setApart((middleOf(part->getObject()->getBoundingBox()) - middleOf(all)) * share);
        lowest = std::min(lowest, part->apart().Z());
    }
    for (Mesh::ViewProvider* const part : shown)
        part->setApart(part->apart() - Vector(0, 0, lowest));
}
