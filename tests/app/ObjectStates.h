// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// What of an object must come back from a file.
struct ObjectState
{
    std::string className, name, group, uuid;
    bool isVisible;
    unsigned color;
    UBox3<float> box;
    std::vector<float> matrix;
    std::vector<UPoint3<float>> points;
    bool operator==(ObjectState const&) const = default;
};

/// Of all objects of a document, in order.
inline std::vector<ObjectState> statesOf(Mesh::Document const& document)
{
    std::vector<ObjectState> states;
    for (Base::DocumentObject* const object : document.getObjectArray()) {
        ObjectState state{object->getClassName(),
                          object->getName(),
                          {},
                          object->getUuid(),
                          object->isVisible(),
                          object->getColor(),
                          object->getBoundingBox(),
                          {},
                          {}};
        if (auto const* const part = dynamic_cast<Mesh::DocumentObject*>(object)) {
            UMatrix4<float> const matrix = part->getMatrix();
            state.group = part->getGroup() ? part->getGroup()->getName() : "";
            state.matrix.assign(matrix.data(), matrix.data() + 16);
            for (auto const* const vertex : part->meshProperty->getMesh()->readMesh()->vertices)
                state.points.push_back(vertex->cP());
        }
        states.push_back(std::move(state));
    }
    return states;
}

/// A number for a document as it is: two documents that differ have two, for all that tests do.
inline std::uint64_t fingerprintOf(Mesh::Document const& document)
{
    std::uint64_t sum = 0;
    auto const add = [&](std::string const& bytes) {
        for (char const byte : bytes + '\n')
            sum = (sum ^ std::uint8_t(byte)) * 0x100000001b3u;
    };
    auto const addNumber = [&](float number) {
        add(std::string(reinterpret_cast<char const*>(&number), sizeof number));
    };
    for (ObjectState const& object : statesOf(document)) {
        for (std::string const& text : {object.className, object.name, object.group, object.uuid})
            add(text);
        add(std::to_string(object.color) + (object.isVisible ? "+" : "-"));
        for (float const number : object.matrix)
            addNumber(number);
        for (UPoint3<float> const& point : object.points)
            for (int k = 0; k < 3; ++k)
                addNumber(point[k]);
    }
    return sum;
}
