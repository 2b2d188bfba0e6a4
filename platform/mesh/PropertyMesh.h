// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/Property.h"
#include "platform/mesh/MeshKernel.h"

#include <memory>

/// The property that holds a part's kernel. Workers may read it while the user interface thread
/// leaves it alone.
class PropertyMesh : public Base::Property
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    /// An empty kernel.
    PropertyMesh();
    ~PropertyMesh() override;

    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    /// The kernel, which stays owned by the property; null only after setMesh of null.
    MeshKernel* getMesh() const { return m_kernel.get(); }

    /// Replaces the kernel, and brings its box up to date. The container is told, so that in an
    /// open transaction the former kernel comes back by undo.
    ///
    /// takeOwnership  false: the caller keeps the kernel alive as long as property or history use
    /// it
    void setMesh(MeshKernel* kernel, bool takeOwnership);
    void setMesh(std::shared_ptr<MeshKernel> kernel);
    std::shared_ptr<MeshKernel> const& shareMesh() const { return m_kernel; }

    /// Bytes of the records.
    std::size_t getMemSize() const override;

private:
    std::shared_ptr<MeshKernel> m_kernel;
};
