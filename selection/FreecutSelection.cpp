// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/FreecutSelection.h"

#include "platform/document/Document.h"
#include "platform/document/DocumentObject.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/view/GLView.h"
#include "platform/view/NavigationStyle.h"
#include "tools/SceneBox.h"

#include <QCursor>
#include <QPixmap>

#include <utility>

namespace Freecut {

namespace {

/// The world point of the reference plane under a widget position.
UPoint3<float> pointOfReferencePlane(GLCamera const& camera, QPoint position)
{
    UPoint2<float> place(float(position.x()), float(position.y()));
    camera.mouseposToEyecs(place);
    UPoint3<float> point(place.X(), place.Y(), 0);
    camera.ViewCSToWCSpoint(point);
    return point;
}

}  // namespace

Base::Type FreecutSelection::classTypeId = Base::Type::badType();

void FreecutSelection::init()
{
    initSubclass(classTypeId, "Freecut::FreecutSelection", "Mesh::PointPickerMesh", create);
}

void* FreecutSelection::create()
{
    return static_cast<BaseClass*>(new FreecutSelection);
}

FreecutSelection::~FreecutSelection()
{
    // A tool that ends while it has an event lives on until the event is over, when the next one
    // may have started already.
    if (m_view && !m_view->navigationStyle()->mouseModel())
        m_view->unsetCursor();
}

Base::Type FreecutSelection::getTypeId() const
{
    return classTypeId;
}

std::string FreecutSelection::getClassName() const
{
    return "Freecut::FreecutSelection";
}

int FreecutSelection::mousePressEvent(QMouseEvent* event)
{
    return PointPickerMesh::mousePressEvent(event);
}

int FreecutSelection::mouseMoveEvent(QMouseEvent* event)
{
    return PointPickerMesh::mouseMoveEvent(event);
}

int FreecutSelection::mouseReleaseEvent(QMouseEvent* event)
{
    return PointPickerMesh::mouseReleaseEvent(event);
}

UBox3<float> FreecutSelection::getObjectsBox() const
{
    Base::Document const* const document = activeDocument();
    return document ? boxOfAllParts(*document) : UBox3<float>();
}

float FreecutSelection::calculateSuitableSize() const
{
    return suitableSize(getObjectsBox());
}

std::vector<UPoint3<float>> FreecutSelection::getAllObjectsBoudingBoxEightPoints() const
{
    return cornersOf(getObjectsBox());
}

void FreecutSelection::showCursor(char const* name)
{
    QPixmap const picture(QStringLiteral(":/icons/icons/%1.png").arg(QLatin1String(name)));
    m_view->setCursor(QCursor(picture, 0, 0));
}

UVector3<float> FreecutSelection::worldDelta(QPoint position) const
{
    GLCamera const& camera = *m_view->getCamera();
    return pointOfReferencePlane(camera, position) - pointOfReferencePlane(camera, lastPos);
}

void FreecutSelection::keepEdits(EditHistory::Tool tool)
{
    tool.giveUpDrag = [this] { m_view->navigationStyle()->cancelDrag(); };
    m_edits = std::make_unique<EditHistory>(std::move(tool));
    setHistory(m_edits.get());
}

void FreecutSelection::addTool(Base::Document& document, Base::DocumentObject* tool)
{
    createdObjects.add(document, tool);
    tool->setSelected(true, true, false);
}

}  // namespace Freecut
