// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/MeshDocument.h"
#include "platform/mesh/MeshKernel.h"

#include <QObject>

#include <memory>
#include <unordered_map>

/// Looks at what files have brought: parts that reach so far from the origin that their coordinates
/// are too coarse to be cut well are reported, with the offer to scale them down. That is a step
/// which can be undone. Each part is asked about once.
///
/// thread  the user interface thread
class FarParts : public QObject
{
    Q_OBJECT

public:
    explicit FarParts(QObject* parent);

    /// Millimetres from the origin, along any axis, from which on a part is far.
    static constexpr double limit = 1e7;

    /// The power of a thousandth that brings a reach within a hundred metres.
    static double factorFor(double reach);

    /// Looks at the parts of the active document, and asks; while a job runs it waits for its end.
    void look();

private:
    void askAbout(Mesh::Document& document, std::vector<Mesh::DocumentObject*> const& parts,
                  double reach) const;

    /// The meshes that were asked about.
    std::unordered_map<UMesh<float> const*, std::weak_ptr<UMesh<float> const>> m_known;
};
