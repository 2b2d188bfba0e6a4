// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/view/PlaceMark.h"

#include "platform/document/Document.h"
#include "platform/document/DocumentObject.h"
#include "platform/jobs/EventNotify.h"
#include "platform/ui/Theme.h"
#include "platform/view/GLView.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>

namespace Base {

namespace {

constexpr char const* partClass = "Mesh::DocumentObject";
/// The share of a part that is shown around the place.
constexpr double shownShare = 0.25;

void lookAt(GLView& view, UPoint3<float> const& place, DocumentObject const* part)
{
    view.paintPending();
    GLCamera& camera = *view.getCamera();
    UPoint3<float> middle = place;
    // Tools draw at a depth that is counted from the reference plane.
    if (view.isDrawnIn())
        middle = middle + view.getViewDirection() *
                              ((view.getViewRefPoint() - middle) | view.getViewDirection());
    camera.set_ref(middle.X(), middle.Y(), middle.Z(), true);
    UBox3<float> const box = part ? part->getBoundingBox() : UBox3<float>();
    double width = 0, height = 0;
    camera.get_view_rect(width, height);
    double const wanted =
        box.Isnullptr() ? 0 : double((box.max - box.min).GetLength()) * shownShare;
    if (wanted > 0 && wanted < height)
        camera.set_view_height(wanted);
    emit view.signalCameraChanged();
    view.redraw();
}

}  // namespace

void PlaceMark::show(GLView& view, UPoint3<float> const& place, DocumentObject const* part)
{
    delete in(view);
    lookAt(view, place, part);
    auto* const mark = new PlaceMark(view, place);
    mark->QWidget::show();
}

PlaceMark* PlaceMark::in(GLView const& view)
{
    return view.findChild<PlaceMark*>(QString(), Qt::FindDirectChildrenOnly);
}

PlaceMark::PlaceMark(GLView& view, UPoint3<float> const& place)
    : QWidget(&view), m_view(view), m_place(place)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFixedSize(4 * g_pixelSize, 4 * g_pixelSize);
    connect(&view, &GLView::signalCameraChanged, this, &PlaceMark::follow);
    view.installEventFilter(this);
    connect(EventNotify::instance(), &EventNotify::startEvent, this, &PlaceMark::leave);
    if (Document* const document = view.getDocument()) {
        document->signalNewObject.connect(this, &PlaceMark::objectCameOrChanged);
        document->signalObjectChanged.connect(this, &PlaceMark::objectCameOrChanged);
        document->signalDelObject.connect(this, &PlaceMark::objectWent);
        document->signalObjectSelectionChanged.connect(this, &PlaceMark::leave);
        document->signalDocumentDeleted.connect(this, &PlaceMark::leave);
    }
    follow();
}

void PlaceMark::follow()
{
    int x = 0, y = 0;
    m_view.getWidgetcoordFromWCS(m_place, x, y);
    // Numbers far outside are too large for a widget.
    constexpr int most = 10000;
    move(std::clamp(x, -most, most) - width() / 2, std::clamp(y, -most, most) - height() / 2);
}

void PlaceMark::leave()
{
    disconnect_all();
    hide();
    deleteLater();
}

void PlaceMark::objectCameOrChanged(DocumentObject* object)
{
    if (object->getClassName() == partClass)
        leave();
}

void PlaceMark::objectWent(DocumentObject*, std::string className)
{
    if (className == partClass)
        leave();
}

bool PlaceMark::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        follow();
    return QWidget::eventFilter(watched, event);
}

void PlaceMark::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    double const pen = std::max(2.0, g_pixelSize / 5.0);
    QRectF const ring = QRectF(rect()).adjusted(2 * pen, 2 * pen, -2 * pen, -2 * pen);
    // A pale rim keeps the ring off parts of its own colour.
    painter.setPen(QPen(QColor(255, 255, 255, 200), 2 * pen));
    painter.drawEllipse(ring);
    painter.setPen(QPen(QColor(200, 30, 30), pen));
    painter.drawEllipse(ring);
    painter.drawPoint(ring.center());
}

}  // namespace Base
