// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/MeshDocumentObject.h"

#include "host/document/History.h"
#include "host/formats/FileError.h"
#include "host/formats/PartFiles.h"
#include "host/mesh/MeshFacts.h"
#include "host/mesh/Placement.h"
#include "platform/document/Document.h"
#include "platform/document/DocumentObjectGroup.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/view/ViewProvider.h"

namespace Mesh {

namespace {

Base::Property* meshOf(Base::PropertyContainer const& container)
{
    return static_cast<DocumentObject const&>(container).meshProperty;
}

constexpr Base::PropertyData::Entry meshEntries[] = {
    {"Mesh", "Geometry", "The part's mesh and placement", 0, meshOf}};

}  // namespace

constinit Base::Type DocumentObject::classTypeId;
constinit Base::PropertyData DocumentObject::propertyData(meshEntries, std::size(meshEntries));

void DocumentObject::init()
{
    initSubclass(classTypeId, "Mesh::DocumentObject", "Base::DocumentObject", create);
    propertyData.parent = Base::DocumentObject::getPropertyDataPtr();
}

void* DocumentObject::create()
{
    return new DocumentObject();
}

DocumentObject::DocumentObject() : meshProperty(&m_mesh)
{
    m_mesh.setContainer(this);
}

DocumentObject::~DocumentObject() = default;

Base::Type DocumentObject::getTypeId() const
{
    return classTypeId;
}

std::string DocumentObject::getClassName() const
{
    return "Mesh::DocumentObject";
}

Base::PropertyData const& DocumentObject::getPropertyData() const
{
    return propertyData;
}

std::string DocumentObject::getViewProviderName() const
{
    return "Mesh::ViewProvider";
}

DocumentObject* DocumentObject::shallowCopy() const
{
    auto copy = std::make_unique<DocumentObject>();
    copy->copyFrom(const_cast<DocumentObject*>(this));
    return copy.release();
}

DocumentObject* DocumentObject::deepCopy() const
{
    std::unique_ptr<DocumentObject> copy(shallowCopy());
    if (MeshKernel* const kernel = copy->meshProperty->getMesh())
        kernel->detach();
    return copy.release();
}

void DocumentObject::copyFrom(Base::DocumentObject* source)
{
    if (source == this)
        return;
    Base::DocumentObject::copyFrom(source);
    auto const* const part = dynamic_cast<DocumentObject const*>(source);
    if (!part)
        return;
    setParentUuid(part->getUuid());
    MeshKernel const* const kernel = part->meshProperty->getMesh();
    meshProperty->setMesh(kernel ? std::make_shared<MeshKernel>(*kernel) : nullptr);
}

void DocumentObject::copyFrom4Support(Base::DocumentObject* source)
{
    copyFrom(source);
}

bool DocumentObject::load(char const* file)
{
    std::vector<Formats::LoadedPart> parts;
    try {
        parts = Formats::readParts(reinterpret_cast<char8_t const*>(file));
    } catch (Formats::FileError const& error) {
        Base::ConsoleSingleton::Instance().Log(error.what());
        return false;
    }
    if (parts.empty())
        return false;
    std::shared_ptr<MeshKernel> kernel = std::move(parts.front().kernel);
    if (parts.size() > 1)
        kernel = placedCopy(*kernel);
    for (std::size_t i = 1; i < parts.size(); ++i)
        appendRecords(*kernel->getMesh(), *placedCopy(*parts[i].kernel)->getMesh());
    meshProperty->setMesh(kernel);
    if (getName().empty())
        setName(parts.front().name);
    return true;
}

void DocumentObject::onBeforeChange(Base::Property* property)
{
    if (Base::History* const history = openHistory(); history && property == meshProperty)
        history->recordKernel(entry());
    Base::DocumentObject::onBeforeChange(property);
}

void DocumentObject::onChanged(Base::Property* property)
{
    if (property == meshProperty)
        m_isMeasured = false;
    Base::DocumentObject::onChanged(property);
}

void DocumentObject::setGroup(DocumentObjectGroup* group)
{
    if (Base::History* const history = openHistory())
        history->recordGroup(entry());
    m_group = group;
    notifyChanged();
}

void DocumentObject::updateBoundingBox()
{
    if (MeshKernel* const kernel = meshProperty->getMesh())
        kernel->UpdateBoundingBox();
}

UBox3<float> DocumentObject::getBoundingBox() const
{
    MeshKernel const* const kernel = meshProperty->getMesh();
    return kernel ? kernel->GetBox() : UBox3<float>();
}

void DocumentObject::getPartVolumnAndArea(double& volume, double& area) const
{
    if (!m_isMeasured) {
        MeshKernel const* const kernel = meshProperty->getMesh();
        MeshFacts const facts = kernel ? measureMesh(*kernel) : MeshFacts();
        m_volume = facts.volume;
        m_area = facts.area;
        m_isMeasured = true;
    }
    volume = m_volume;
    area = m_area;
}

void DocumentObject::setUpdateVolumnAndArea(bool update)
{
    if (update)
        m_isMeasured = false;
}

void DocumentObject::setMeshModified(bool modified)
{
    if (!modified)
        return;
    m_isMeasured = false;
    updateBoundingBox();
    if (Base::ViewProvider* const provider =
            getDocument() ? getDocument()->getViewProvider(this) : nullptr)
        provider->updateRenderData();
    notifyChanged();
}

void DocumentObject::meshConvertToRealCoord()
{
    if (!getMatrix().isIdentity())
        meshProperty->setMesh(placedCopy(*meshProperty->getMesh()));
}

void DocumentObject::merge(DocumentObject const* other)
{
    merge(std::vector<DocumentObject*>{const_cast<DocumentObject*>(other)});
}

void DocumentObject::merge(std::vector<DocumentObject*> const& others)
{
    MeshKernel const* const own = meshProperty->getMesh();
    auto const merged = own ? placedCopy(*own) : std::make_shared<MeshKernel>();
    for (DocumentObject const* const other : others)
        if (MeshKernel const* const kernel = other->meshProperty->getMesh())
            appendRecords(*merged->getMesh(), *placedCopy(*kernel)->getMesh());
    meshProperty->setMesh(merged);
}

void DocumentObject::compress()
{
    MeshKernel* const kernel = meshProperty->getMesh();
    if (!kernel)
        return;
    kernel->DeleteUnreferenceVerts();
    kernel->UpdateVertsID();
    kernel->getMesh()->vertices.shrink_to_fit();
    kernel->getMesh()->triangles.shrink_to_fit();
    setMeshModified(true);
}

}  // namespace Mesh
