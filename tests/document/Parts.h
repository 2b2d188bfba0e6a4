// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "tests/support/MeshBuilders.h"

#include <string>
#include <utility>
#include <vector>

/// A part that counts how many of its kind are alive.
class CountedPart : public Mesh::DocumentObject
{
public:
    explicit CountedPart(std::string name = {})
    {
        ++alive;
        setName(std::move(name));
    }
    ~CountedPart() override { --alive; }

    static inline int alive = 0;
};

inline void giveBox(Mesh::DocumentObject& part, float x, float y, float z)
{
    part.meshProperty->setMesh(kernelOf(box(x, y, z)).release(), true);
}

/// All that a transaction restores, for comparison.
struct DocumentState
{
    std::vector<Base::DocumentObject*> objects;
    std::vector<Base::DocumentObject*> selection;
    std::vector<std::string> names;
    std::vector<bool> visible;
    std::vector<unsigned> colors;
    std::vector<Base::DocumentObject*> groups;
    std::vector<MeshKernel*> kernels;
    std::vector<UMatrix4<float>> matrices;
    std::vector<UBox3<float>> boxes;

    explicit DocumentState(Mesh::Document const& document)
        : objects(document.getObjectArray()), selection(document.getSelectedObjects())
    {
        for (Base::DocumentObject const* const object : objects) {
            names.push_back(object->getName());
            visible.push_back(object->isVisible());
            colors.push_back(object->getColor());
            boxes.push_back(object->getBoundingBox());
        }
        for (Mesh::DocumentObject const* const part : document.getMeshObjects()) {
            groups.push_back(part->getGroup());
            kernels.push_back(part->meshProperty->getMesh());
            matrices.push_back(part->getMatrix());
        }
    }
    bool operator==(DocumentState const&) const = default;
};

/// A document of three parts, two in a group, one hidden, one selected.
class PartsDocument
{
public:
    Mesh::Document document{"plate"};
    CountedPart* bunny = add("bunny");
    CountedPart* hand = add("hand");
    CountedPart* gear = add("gear");
    Mesh::DocumentObjectGroup* group = new Mesh::DocumentObjectGroup;

    PartsDocument()
    {
        document.addObject(group, "pair", true);
        group->addObject(bunny, nullptr);
        group->addObject(gear, nullptr);
        gear->setVisible(false);
        bunny->setSelected(true, true, false);
        giveBox(*bunny, 1, 2, 3);
    }

    CountedPart* add(char const* name)
    {
        auto* const part = new CountedPart(name);
        document.addObject(part, nullptr, true);
        return part;
    }

    /// What a cut does to a part: two pieces join its group, the part goes.
    std::vector<CountedPart*> cut(CountedPart* part)
    {
        Mesh::DocumentObjectGroup* const home = part->getGroup();
        std::vector<CountedPart*> pieces;
        for (int i = 0; i < 2; ++i) {
            auto* const piece = new CountedPart(
                document.getUniqueObjectName(part->getName().c_str(), "_cut", true, true));
            if (home)
                home->addObject(piece, piece->getName().c_str());
            else
                document.addObject(piece, piece->getName().c_str(), true);
            piece->setVisible(part->isVisible());
            piece->setSelected(true, true, false);
            pieces.push_back(piece);
        }
        if (home)
            home->removeObject(part);
        document.removeObject(part);
        return pieces;
    }
};
