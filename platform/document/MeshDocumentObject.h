// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/DocumentObject.h"
#include "platform/mesh/PropertyMesh.h"

#include <vector>

namespace Base {
class History;
}

namespace Mesh {

class DocumentObjectGroup;

/// A part: a mesh with a placement.
///
/// Moving, turning, scaling and mirroring change the kernel's matrix, in which the services see
/// the part; the records stay as they are, so this costs one pass over the vertices for the box
/// and can be undone. The box is always that of the placed part.
///
/// Parts with support structures are a class of their own, "Support::DocumentObject". A plain part
/// has none: what asks for supports gets none, what sets them does nothing.
class DocumentObject : public Base::DocumentObject
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();
    static Base::PropertyData* getPropertyDataPtr() { return &propertyData; }

    /// An empty part with an empty kernel.
    DocumentObject();
    ~DocumentObject() override;

    Base::Type getTypeId() const override;
    std::string getClassName() const override;
    Base::PropertyData const& getPropertyData() const override;

    std::string getViewProviderName() const override;
    DocumentObject* deepCopy() const override;
    /// The copy reads the same records until one of the two is written to.
    DocumentObject* shallowCopy() const override;
    /// From another part: look, mesh (shared until written to) and placement.
    void copyFrom(Base::DocumentObject* source) override;
    /// Reads a mesh file of any known format; several parts in one file are merged, and a part
    /// without a name takes that of the file's first. False if the file cannot be read: the reason
    /// goes to the log console and the part stays as it was.
    bool load(char const* file) override;
    void loadMatrixWithEditing(UMatrix4<float> const& matrix) override;
    void updateBoundingBox() override;
    UBox3<float> getBoundingBox() const override;
    using Base::DocumentObject::onBeforeChange;
    using Base::DocumentObject::onChanged;
    void onBeforeChange(Base::Property* property) override;
    void onChanged(Base::Property* property) override;

    /// The mesh property; never null, owned by the part.
    PropertyMesh* const meshProperty;

    /// What copyFrom leaves to parts with supports: here copyFrom itself.
    virtual void copyFrom4Support(Base::DocumentObject* source);

    // Placement, in world millimetres. Each operation is applied after the present placement.

    /// step  the caller's count of drag steps; a plain part makes no use of it
    virtual void translate(UVector3<float> offset, int step);
    /// Turns by the right-hand rule.
    ///
    /// centre, axis  a line; an axis of no length turns nothing
    /// keepOnPlate   moves the part back to the height its box had
    virtual void rotate(UPoint3<float> centre, float angleRadians, UVector3<float> axis,
                        bool keepOnPlate);
    virtual void loadMatrix(UMatrix4<float> const& matrix);
    /// Replaces the placement.
    virtual void setMatrix(UMatrix4<float> matrix, bool updateBox, bool notify);
    /// throws  Mell::Exception for a factor that is zero or not finite
    virtual void scale(UPoint3<float> centre, UVector3<float> factors);
    /// Reflects in a plane; a normal of no length reflects nothing.
    virtual void mirror(UPoint3<float> point, UVector3<float> normal);
    /// Replaces the kernel by one with the matrix applied to the records and an identity matrix.
    /// Like every change of the kernel it can be undone in a transaction.
    virtual void meshConvertToRealCoord();

    /// Volume (mm^3, positive for an outward-facing solid; holes count as closed by cones to the
    /// origin) and surface (mm^2) of the placed part. Kept until mesh or placement changes.
    virtual void getPartVolumnAndArea(double& volume, double& area) const;
    /// True makes the next getPartVolumnAndArea compute anew.
    virtual void setUpdateVolumnAndArea(bool update);
    /// Tells that records were changed in place: box, volume, area and what a view draws are stale.
    virtual void setMeshModified(bool modified);

    virtual MeshKernel* getSupportMesh() const;
    virtual MeshKernel* getSupportPlat() const;
    virtual std::vector<UTriangle<float>*> getSolidSupportTris() const;
    virtual std::vector<UTriangle<float>*> getBasePlateTris() const;
    virtual float getPlatSupHeight() const;
    virtual void getSupportVolumnAndArea(double& volume, double& area) const;
    virtual MeshKernel* getSupportMeshDeepCopy() const;

    /// Replaces the kernel by one with the records of this part and of others, as they are placed,
    /// and an identity matrix. The others stay as they are.
    virtual void merge(DocumentObject const* other);
    virtual void merge(std::vector<DocumentObject*> const& others);

    /// Between these, loadMatrixWithEditing counts from the placement at startEditing.
    virtual void startEditing();
    virtual void finishEditing();
    /// Frees unreferenced vertices and spare capacity.
    virtual void compress();

    // Whether the operation keeps the part's supports: always true without any.
    virtual bool translateCheck() const;
    virtual bool rotateCheck() const;
    virtual bool mirrorCheck() const;
    /// Whether the supports fit the part: there are none that could.
    virtual bool partSupportCheck() const;
    virtual void removePartSupport();
    virtual bool hasSupportCheck() const;
    virtual void hideSupport();
    virtual void showSupport();
    virtual UBox3<float> getSupportBox() const;
    virtual void setSupportBox(UBox3<float> const& box);

    /// The part's group, or null.
    DocumentObjectGroup* getGroup() const { return m_group; }
    UMatrix4<float> getMatrix() const;

protected:
    static Base::PropertyData propertyData;

private:
    friend class DocumentObjectGroup;
    friend class Base::History;

    void setGroup(DocumentObjectGroup* group);
    void place(UMatrix4<double> const& operation);

    PropertyMesh m_mesh;
    DocumentObjectGroup* m_group = nullptr;
    bool m_isEditing = false;
    UMatrix4<float> m_editingStart;
    mutable bool m_isMeasured = false;
    mutable double m_volume = 0;
    mutable double m_area = 0;
};

}  // namespace Mesh
