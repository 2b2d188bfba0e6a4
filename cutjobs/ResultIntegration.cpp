// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/ResultIntegration.h"

#include "platform/document/Document.h"
#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/document/RenamePara.h"
#include "platform/document/q2s.h"
#include "platform/mesh/TakenMesh.h"

#include <cstdint>

namespace {

/// Whether a kernel reads the same mesh as another one: that of a part that no cut has touched.
bool isShared(MeshKernel const& kernel)
{
    // The kernel and the question itself.
    constexpr long ownersOfAMeshOfItsOwn = 2;
    auto const mesh = kernel.readMesh();
    return mesh.use_count() > ownersOfAMeshOfItsOwn;
}

/// A kernel that takes over the records of a piece; nothing is copied.
MeshKernel* takeGeometry(MeshKernel& piece, bool writesCounts)
{
    if (isShared(piece)) {
        auto shared = std::make_unique<MeshKernel>();
        shared->shareMeshOf(piece);
        shared->getMatrix() = UMatrix4<float>();
        piece.replaceMesh(std::make_unique<UMesh<float>>());
        return shared.release();
    }
    // The mesh is filled before a kernel holds it: a kernel that has handed its mesh out for
    // writing is copied record by record when the part is cut again.
    auto mesh = takeMesh(piece);
    if (!writesCounts)
        mesh->triangleCount = mesh->vertexCount = 0;
    return new MeshKernel(mesh.release());
}

}  // namespace

ResultIntegration::ResultIntegration(Base::Document* document, IntegrationRules const& rules)
    : m_document(document), m_rules(rules)
{}

ResultIntegration::PartMap ResultIntegration::begin(CutResultMap const& pieces)
{
    if (m_rules.marksModifiedFirst)
        m_document->setModified(true);
    if (m_rules.undoable)
        m_document->openTransaction(m_rules.transactionName);
    PartMap parts;
    for (auto const& [source, kernels] : pieces)
        for (auto const& kernel : kernels)
            parts[source].push_back(addPart(source, *kernel, kernels.size() == 1));
    rememberCut(parts);
    if (m_rules.removesSources)
        for (auto const& [source, kernels] : pieces)
            if (!kernels.empty())
                removeSource(source);
    return parts;
}

void ResultIntegration::end()
{
    if (!m_rules.undoable)
        return;
    m_document->setModified(true);
    m_document->commitTransaction();
}

Mesh::DocumentObject* ResultIntegration::addPart(Mesh::DocumentObject* source, MeshKernel& piece,
                                                 bool isOnly)
{
    auto* const part = new Mesh::DocumentObject;
    part->meshProperty->setMesh(takeGeometry(piece, m_rules.writesCounts), true);
    std::string const name = nameOf(source->getName(), isOnly);
    part->setName(name);
    Mesh::DocumentObjectGroup* const group = m_rules.keepsGroup ? source->getGroup() : nullptr;
    if (group)
        group->addObject(part, name.c_str());
    else
        m_document->addObject(part, name.c_str(), true);
    part->setVisible(source->isVisible());
    if (m_rules.selectsPieces)
        part->setSelected(true, true, false);
    return part;
}

void ResultIntegration::rememberCut(PartMap const& parts) const
{
    for (auto const& [source, pieces] : parts) {
        if (pieces.size() != 2)
            continue;
        if (auto const plane = m_rules.planes.find(source); plane != m_rules.planes.end())
            Mesh::rememberCut(*source, plane->second, *pieces[0], *pieces[1]);
        else if (m_rules.shapeDirection)
            Mesh::rememberShapeCut(*source, *m_rules.shapeDirection, *pieces[0], *pieces[1]);
    }
}

std::string ResultIntegration::nameOf(std::string const& base, bool isOnly) const
{
    if (m_rules.naming == IntegrationRules::Naming::SourceName)
        return base;
    if (isOnly && m_rules.naming == IntegrationRules::Naming::CutSuffix)
        return base + "(cut)";
    return m_document->getUniqueObjectName(base.c_str(), q2s(Mesh::g_RenamePara.suffix), true,
                                           !isOnly);
}

void ResultIntegration::removeSource(Mesh::DocumentObject* source)
{
    if (m_rules.keepsGroup)
        if (Mesh::DocumentObjectGroup* const group = source->getGroup())
            group->removeObject(source);
    m_document->removeObject(source);
}
