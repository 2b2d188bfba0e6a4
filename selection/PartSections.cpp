// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/PartSections.h"

#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/view/GLView.h"

namespace Freecut {

PartSections::PartSections()
{
    QObject::connect(&m_work, &NewestWork::ready, &m_work, [this] { draw(); });
}

PartSections::~PartSections()
{
    remove();
}

bool PartSections::Part::operator==(Part const& other) const
{
    return mesh == other.mesh && matrix == other.matrix;
}

std::vector<PartSections::Part> PartSections::partsIn(Base::GLView const& view)
{
    std::vector<Part> parts;
    if (!view.getDocument())
        return parts;
    for (Mesh::DocumentObject* const object : view.getDocument()->getPartList()) {
        MeshKernel const* const kernel =
            object->isVisible() && object->meshProperty ? object->meshProperty->getMesh() : nullptr;
        if (kernel)
            parts.push_back({kernel->readMesh(), kernel->getMatrix()});
    }
    return parts;
}

SectionLines PartSections::sectionOf(Request const& request, NewestWork::Poll const& poll)
{
    SectionLines section;
    for (SectionPlane const& plane : request.planes)
        for (Part const& part : request.parts)
            section.append(sectionOfPart(*part.mesh, part.matrix, plane.point, plane.normal, poll));
    return section;
}

void PartSections::show(Base::GLView& view, std::vector<SectionPlane> const& planes)
{
    if (m_view != &view)
        remove();
    m_view = &view;
    Request request{partsIn(view), planes};
    if (request != m_request)
        ask(std::move(request));
    if (!m_isShown) {
        m_isShown = true;
        draw();
    }
}

void PartSections::ask(Request request)
{
    m_request = std::move(request);
    m_found = {};
    draw();
    m_work.ask([this, asked = m_request](NewestWork::Poll const& poll) {
        auto const found = std::make_shared<SectionLines>(sectionOf(asked, poll));
        return [this, found] { m_found = std::move(*found); };
    });
}

SectionLines const& PartSections::section() const
{
    static SectionLines const none;
    return m_isShown ? m_found : none;
}

void PartSections::draw()
{
    if (!m_view || (!m_item && section().lines.empty()))
        return;
    if (!m_item) {
        m_item = std::make_unique<ContourItem>(m_view);
        m_view->addGraphicsItem(m_item.get());
    }
    // They lie across the view, and are seen from all sides.
    m_item->setLines(section().lines, {});
    m_view->redraw();
}

void PartSections::hide()
{
    if (!m_isShown)
        return;
    m_isShown = false;
    draw();
}

void PartSections::remove()
{
    m_work.drop();
    m_request = {};
    m_found = {};
    m_isShown = false;
    if (m_item && m_view)
        m_view->removeGraphicsItem(m_item.get());
    else if (m_item)
        m_item->setViewer(nullptr);
    m_item.reset();
    m_view.clear();
}

}  // namespace Freecut
