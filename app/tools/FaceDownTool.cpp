// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tools/FaceDownTool.h"

#include "app/jobs/JobGuard.h"
#include "app/parts/PartPlacement.h"
#include "platform/view/ClickReach.h"
#include "platform/view/MeshGLView.h"

#include <QMouseEvent>

namespace {

/// Out of the part, of any length.
UVector3<double> outwardNormal(Mesh::DocumentObject const& part, UTriangle<float> const& triangle)
{
    UMatrix4<float> const matrix = part.getMatrix();
    UVector3<double> corners[3];
    for (int corner = 0; corner < 3; ++corner) {
        UPoint3<float> const p = triangle.cP(corner);
        for (int row = 0; row < 3; ++row)
            corners[corner][row] = double(matrix(row, 0)) * p.X() + double(matrix(row, 1)) * p.Y() +
                                   double(matrix(row, 2)) * p.Z();
    }
    UVector3<double> const normal = (corners[1] - corners[0]) * (corners[2] - corners[0]);
    return matrix.linearDeterminant() < 0 ? -normal : normal;
}

}  // namespace

constinit Base::Type FaceDownTool::classTypeId;

void FaceDownTool::init()
{
    if (classTypeId.isBad())
        initSubclass(classTypeId, name, "Base::AbstractMouseSelection", create);
}

void* FaceDownTool::create()
{
    return static_cast<BaseClass*>(new FaceDownTool);
}

Base::Type FaceDownTool::getTypeId() const
{
    return classTypeId;
}

std::string FaceDownTool::getClassName() const
{
    return name;
}

int FaceDownTool::mousePressEvent(QMouseEvent* event)
{
    m_isPressed = event->button() == Qt::LeftButton;
    m_press = event->pos();
    return 0;
}

int FaceDownTool::mouseMoveEvent(QMouseEvent* event)
{
    if (isBeyondClick(event->pos() - m_press))
        m_isPressed = false;
    return 0;
}

int FaceDownTool::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_isPressed || event->button() != Qt::LeftButton)
        return 0;
    m_isPressed = false;
    if (!JobGuard::instance()->isBusy())
        layOnFaceAt(event->pos());
    return 1;
}

void FaceDownTool::layOnFaceAt(QPoint position)
{
    auto const* const view = dynamic_cast<Mesh::GLView const*>(m_view);
    auto* const document = dynamic_cast<Mesh::Document*>(m_view->getDocument());
    Mesh::GLView::Pick pick;
    if (view && document && view->pickPoint(position, pick))
        PartPlacement::layDown(*document, {{pick.part, outwardNormal(*pick.part, *pick.triangle)}});
}
