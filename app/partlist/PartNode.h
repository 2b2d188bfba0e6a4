// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/MeshDocumentObject.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

/// A row of the part list: a group or a part, with all that is shown of it. The object may be gone
/// before the list hears of it, so nothing is read from it but when the list is brought up to date.
struct PartNode
{
    enum class Eye
    {
        Closed,
        Half,
        Open
    };

    /// What is shown, and what else tells that a part has changed.
    struct Look
    {
        QString name;
        Eye eye = Eye::Open;
        unsigned color = 0;
        bool isGhost = false;
        bool isCandidate = false;
        Base::DocumentObject const* group = nullptr;
        std::size_t triangles = 0;
        UMesh<float> const* mesh = nullptr;
        UMatrix4<float> matrix;
        /// Empty while it is not known yet.
        std::optional<std::size_t> openEdges;
        /// Of a part that is shown; null for others.
        UBox3<float> box;

        bool operator==(Look const&) const = default;
    };

    /// Null once the object has left the document, and in the root.
    Base::DocumentObject* object = nullptr;
    bool isGroup = false;
    PartNode* parent = nullptr;
    std::vector<std::unique_ptr<PartNode>> children;
    Look look;

    int row() const
    {
        for (std::size_t i = 0; parent && i < parent->children.size(); ++i)
            if (parent->children[i].get() == this)
                return int(i);
        return 0;
    }
};
