// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/DocumentObjectGroup.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/TestDocument.h"
#include "tests/support/WaitUntil.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDataStream>

#include <functional>
#include <map>

/// An application with a document of three boxes of 10 mm, the second and the third in a group.
class PartDocument : public TestDocument
{
public:
    Mesh::DocumentObject* const first = add(box(10, 10, 10), "first");
    Mesh::DocumentObject* const second = add(box(10, 10, 10, {20, 0, 0}), "second");
    Mesh::DocumentObject* const third = add(box(10, 10, 10, {40, 0, 5}), "third");
    Mesh::DocumentObjectGroup* const group = addGroup("pair", {second, third});

    Mesh::DocumentObjectGroup* addGroup(char const* name,
                                        std::vector<Mesh::DocumentObject*> const& parts)
    {
        auto* const made = new Mesh::DocumentObjectGroup;
        document->addObject(made, name, true);
        for (Mesh::DocumentObject* const part : parts)
            made->addObject(part, nullptr);
        return made;
    }
};

/// Lets queued events be handled.
inline void handleEvents()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

/// A hash over all that is saved of a document: objects in order with names, visibility, colours
/// and groups, and of parts the placement and every coordinate and corner.
inline QByteArray hashOf(Mesh::Document const& document)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    auto const objects = document.getObjectArray();
    std::map<Base::DocumentObject const*, int> places;
    for (Base::DocumentObject const* const object : objects)
        places.emplace(object, int(places.size()));
    for (Base::DocumentObject const* const object : objects) {
        stream << QByteArray::fromStdString(object->getName()) << object->isVisible()
               << object->getColor();
        auto const* const part = dynamic_cast<Mesh::DocumentObject const*>(object);
        if (!part)
            continue;
        stream << (part->getGroup() ? places.at(part->getGroup()) : -1);
        UMatrix4<float> const matrix = part->getMatrix();
        for (int i = 0; i < 16; ++i)
            stream << matrix.data()[i];
        auto const mesh = part->meshProperty->getMesh()->readMesh();
        for (UTriangle<float> const* const triangle : mesh->triangles)
            for (int i = 0; i < 3; ++i) {
                UPoint3<float> const p = triangle->cP(i);
                stream << p.X() << p.Y() << p.Z();
            }
    }
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}
