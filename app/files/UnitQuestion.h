// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/MeshDocument.h"
#include "platform/mesh/MeshKernel.h"

#include <QObject>

#include <memory>
#include <unordered_map>

class DocumentFiles;

/// Looks at what mesh files have brought, most of which name no unit: parts that are too small to be
/// meant in millimetres are asked about, and scaled as if their numbers were centimetres, inches or
/// metres. That is a step which can be undone. Each part is asked about once; the unit that was
/// chosen last is suggested the next time.
///
/// thread  the user interface thread
class UnitQuestion : public QObject
{
    Q_OBJECT

public:
    UnitQuestion(DocumentFiles& files, QObject* parent);

    /// Parts whose longest side is shorter are asked about, in millimetres.
    static constexpr double smallestPlausible = 3;

    /// Looks at the parts of the active document, and asks; while a job runs it waits for its end.
    void look();

private:
    using Parts = std::vector<Mesh::DocumentObject*>;
    Parts unknownSmallParts(Mesh::Document const& document);
    void askAbout(Mesh::Document& document, Parts const& parts);

    DocumentFiles& m_files;
    /// The meshes that were asked about.
    std::unordered_map<UMesh<float> const*, std::weak_ptr<UMesh<float> const>> m_known;
};
