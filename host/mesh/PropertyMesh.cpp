// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/mesh/PropertyMesh.h"

constinit Base::Type PropertyMesh::classTypeId;

void PropertyMesh::init()
{
    initSubclass(classTypeId, "PropertyMesh", "Base::Property", create);
}

void* PropertyMesh::create()
{
    return new PropertyMesh();
}

PropertyMesh::PropertyMesh() : m_kernel(std::make_shared<MeshKernel>()) {}

PropertyMesh::~PropertyMesh() = default;

Base::Type PropertyMesh::getTypeId() const
{
    return classTypeId;
}

std::string PropertyMesh::getClassName() const
{
    return "PropertyMesh";
}

void PropertyMesh::setMesh(MeshKernel* kernel, bool takeOwnership)
{
    if (kernel == m_kernel.get())
        return;
    if (takeOwnership)
        setMesh(std::shared_ptr<MeshKernel>(kernel));
    else
        setMesh(std::shared_ptr<MeshKernel>(kernel, [](MeshKernel*) {}));
}

void PropertyMesh::setMesh(std::shared_ptr<MeshKernel> kernel)
{
    aboutToChange();
    m_kernel = std::move(kernel);
    if (m_kernel)
        m_kernel->UpdateBoundingBox();
    hasChanged();
}

std::size_t PropertyMesh::getMemSize() const
{
    if (!m_kernel)
        return 0;
    std::shared_ptr<UMesh<float> const> const mesh = m_kernel->readMesh();
    return mesh->triangles.size() * (sizeof(UTriangle<float>) + sizeof(void*)) +
           mesh->vertices.size() * (sizeof(UVertex<float>) + sizeof(void*));
}
