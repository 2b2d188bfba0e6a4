// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/ComingShape.h"
#include "host/view/DrawDevice.h"
#include "host/view/PartSection.h"
#include "host/view/PartShape.h"
#include "host/view/PreparedPart.h"
#include "platform/view/ViewProvider.h"

struct SectionPlane;

namespace Mesh {

class DocumentObject;

/// Shows a part, and finds where a ray meets it. What OpenGL needs is made with the first picture
/// and what picking needs with the first pick, both anew after the mesh was replaced or
/// updateRenderData was called; a part that is moved keeps them, and parts with one mesh share
/// them. Where that would keep the user interface waiting it is made on another thread, and the
/// part is painted as it was before, or not at all, until the view asks for the next picture.
class ViewProvider : public Base::ViewProvider
{
public:
    static Base::Type classTypeId;
    static Base::Type getClassTypeId() { return classTypeId; }
    static void init();
    static void* create();

    ~ViewProvider() override;
    Base::Type getTypeId() const override;
    std::string getClassName() const override;

    void paintGL() override;
    void updateRenderData() override;
    /// A ghost, or a colour with an alpha below 255.
    bool isTransparent() const override;

    /// Hidden, but shown as a ghost.
    bool isGhost() const;

    /// Finds what the next picture needs of the part, or has it made.
    void prepareToPaint(DrawDevice& device);

    /// A place where a ray meets the part.
    struct Hit
    {
        UTriangle<float>* triangle;
        UPoint3<double> point;
        /// In lengths of the ray's direction.
        double distance;
    };

    /// The first place on a ray in world space.
    std::optional<Hit> firstHit(PickTree::Ray const& ray) const;

    /// Whether firstHit answers without having to sort the mesh first.
    bool isPickReady() const;
    /// Sorts the mesh for that if it is not large; that of a large one is made with its picture.
    void makePickReady() const;

    /// How strong a line is that a plane leaves on the part.
    enum class LineLook
    {
        /// Pale where something stands before it.
        Plain,
        /// All of it, beside a line that counts more at the moment.
        Pale
    };

    // Draw the line in which a plane, or that of z = height, meets the part over the picture.

    void paintSectionLine(SectionPlane const& plane);
    void paintHeightLine(float height, LineLook look);

    /// Takes what was made for the part's mesh; dropped if it is another one's.
    void usePrepared(PreparedPart prepared);

    /// How far from where it is the part is drawn, in world millimetres.
    UVector3<double> const& apart() const { return m_apart; }
    void setApart(UVector3<double> const& apart) { m_apart = apart; }

    /// With the context current: frees what OpenGL holds.
    void releaseGL();
    /// What is to be painted is on its way to the device.
    bool isComing() const { return m_coming && m_coming->isUnderWay(); }
    /// What is on the device of the part; null if it was not painted yet.
    std::shared_ptr<PartShape> shape() const { return m_painted.shape; }
    /// Bytes that the part takes on the device now, its stand-in left out.
    std::size_t deviceBytes() const { return m_painted.shape ? m_painted.shape->bytes : 0; }

private:
    DocumentObject const* part() const;
    MeshKernel const* kernel() const;
    bool hasShapeOf(PartShape::Mesh const& mesh) const;
    bool hasComing(PartShape::Mesh const& mesh) const;
    bool findComing(PartShape::Mesh const& mesh);
    bool beginComing(DrawDevice& device, PartShape::Mesh const& mesh);
    bool findShape(DrawDevice& device, PartShape::Mesh const& mesh);
    bool findSurface(PartShape::Mesh const& mesh);
    bool hasTreeOf(PartShape::Mesh const& mesh) const;
    bool findTree(PartShape::Mesh const& mesh) const;
    bool takeTree(PartShape::Mesh const& mesh) const;
    void take(PreparedPart& prepared, PartShape::Mesh const& mesh) const;
    /// Another provider of the view for which a question about a mesh is true; null if none is.
    ViewProvider const* twin(bool (ViewProvider::*has)(PartShape::Mesh const&) const,
                             PartShape::Mesh const& mesh) const;
    SurfaceLook look(MeshKernel const& kernel) const;
    bool isLit() const;
    unsigned edgeColor(MeshKernel const& kernel) const;
    PickTree const* tree(PartShape::Mesh const& mesh) const;
    std::optional<ViewPlane> cutPlane(MeshKernel const& kernel) const;
    bool hasCaps() const;
    PartSection const* section(std::unique_ptr<PartSection>& kept, ViewPlane const& plane) const;
    void paintCap(SurfaceLook const& look, QMatrix4x4 const& toClip);
    void paintLineIn(ViewPlane const& plane, LineLook look, std::unique_ptr<PartSection>& kept);
    void paintLines(PartSection::Points const& lines, unsigned rgba, float width);

    QMatrix4x4 toShownPlace(MeshKernel const& kernel) const;

    PaintedPart m_painted;
    UVector3<double> m_apart;
    std::shared_ptr<ComingShape> m_coming;
    mutable std::unique_ptr<PartSurface> m_prepared;
    mutable std::shared_ptr<PickTree const> m_tree;
    std::unique_ptr<PartSection> m_capSection;
    std::unique_ptr<PartSection> m_lineSection;
    std::unique_ptr<PartSection> m_heightSection;
};

}  // namespace Mesh
