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

float suitableSize(UBox3<float> const& box)
{
    return std::max((box.max - box.min).GetLength(), 0.001f);
}

}  // namespace Freecut
