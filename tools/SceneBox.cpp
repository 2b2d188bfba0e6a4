// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/SceneBox.h"

#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"

#include <algorithm>

namespace Freecut {

UBox3<float> boxOfAllParts(Base::Document const& document)
{
    UBox3<float> box;
    for (Base::DocumentObject* const object : document.getObjectArray()) {
        std::string const className = object->getClassName();
        if (className != "Mesh::DocumentObject" && className != "Support::DocumentObject")
            continue;
        PropertyMesh const* const mesh = static_cast<Mesh::DocumentObject*>(object)->meshProperty;
        if (mesh && mesh->getMesh())
            box.Add(mesh->getMesh()->GetBox());
    }
    return box;
}

std::vector<UPoint3<float>> cornersOf(UBox3<float> const& box)
{
    std::vector<UPoint3<float>> corners;
    for (unsigned i = 0; i < 8; ++i)
        corners.emplace_back((i & 1 ? box.max : box.min).X(), (i & 2 ? box.max : box.min).Y(),
                             (i & 4 ? box.max : box.min).Z());
    return corners;
}

float suitableSize(UBox3<float> const& box)
{
    return std::max((box.max - box.min).GetLength(), 0.001f);
}

}  // namespace Freecut
