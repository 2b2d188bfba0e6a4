// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/MellViewSlider.h"

#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/ActiveDocument.h"

namespace Base {

MellViewSlider* MellViewSlider::instance()
{
    static MellViewSlider slider;
    return &slider;
}

MellViewSlider::MellViewSlider(QObject* parent) : QObject(parent) {}

void MellViewSlider::setHeight(float height)
{
    if (height == m_height)
        return;
    m_height = height;
    emit heightChanged(height);
}

void MellViewSlider::refresh()
{
    UBox3<float> box;
    Document* const document = activeDocument();
    if (document)
        for (Mesh::DocumentObject const* const part : document->getPartList())
            box.Add(part->getBoundingBox());
    if (box.MinZ() == m_minimum && box.MaxZ() == m_maximum)
        return;
    m_minimum = box.MinZ();
    m_maximum = box.MaxZ();
    emit rangeChanged(m_minimum, m_maximum);
}

}  // namespace Base
