// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/MisfitMarks.h"

#include "app/panels/FitText.h"
#include "app/parts/PlateArranging.h"
#include "app/view/BuildVolume.h"
#include "app/view/BuildVolumeChanges.h"
#include "app/view/OverlayLabel.h"
#include "app/view/ViewAppearance.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/DocumentFollower.h"
#include "platform/view/MeshGLView.h"
#include "platform/view/OverlayLines.h"

#include <QEvent>

namespace {

/// Of the corner in which the view cube stands.
constexpr int cubePixels = 110;
constexpr Base::OverlayLook boxLook{0xd83a2eff, 2, true};

UPoint3<float> cornerOf(UBox3<float> const& box, int corner)
{
    return {corner & 1 ? box.MaxX() : box.MinX(), corner & 2 ? box.MaxY() : box.MinY(),
            corner & 4 ? box.MaxZ() : box.MinZ()};
}

std::vector<UPoint3<float>> edgesOf(UBox3<float> const& box)
{
    std::vector<UPoint3<float>> ends;
    for (int corner = 0; corner < 8; ++corner)
        for (int axis = 1; axis <= 4; axis *= 2)
            if (!(corner & axis)) {
                ends.push_back(cornerOf(box, corner));
                ends.push_back(cornerOf(box, corner | axis));
            }
    return ends;
}

}  // namespace

MisfitMarks::MisfitMarks(Mesh::GLView& view, ViewAppearance const& appearance)
    : QObject(&view), m_view(view), m_appearance(appearance), m_follower(new DocumentFollower(this))
{
    view.addGraphicsItem(this);
    view.installEventFilter(this);
    connect(m_follower, &DocumentFollower::changed, this, &MisfitMarks::refresh);
    connect(m_follower, &DocumentFollower::replaced, this, &MisfitMarks::refresh);
    connect(&BuildVolumeChanges::instance(), &BuildVolumeChanges::changed, this,
            &MisfitMarks::refresh);
    connect(&appearance, &ViewAppearance::changed, this, &MisfitMarks::refresh);
    connect(&DisplayUnit::instance(), &DisplayUnit::changed, this, &MisfitMarks::refresh);
    connect(&view, &Base::GLView::signalCameraChanged, this, &MisfitMarks::placeNotes);
}

MisfitMarks::~MisfitMarks()
{
    // A view that is going with all its children is no more than a widget by then.
    if (qobject_cast<Base::GLView*>(parent()))
        m_view.removeGraphicsItem(this);
}

bool MisfitMarks::isShown() const
{
    return m_appearance.showsPlate() && m_view.drawnApart() == 0;
}

void MisfitMarks::refresh()
{
    m_wasShown = isShown();
    BuildVolume const room = BuildVolume::stored();
    PlateArranging::Volume const volume{room.width, room.depth, room.height};
    bool const hadMarks = !m_marks.empty();
    m_marks.clear();
    auto const* const document = dynamic_cast<Mesh::Document const*>(m_follower->document());
    for (Mesh::DocumentObject const* const part :
         document&& m_wasShown ? document->getMeshObjects() : PlateArranging::Parts()) {
        UBox3<float> const box = part->getBoundingBox();
        if (part->isVisible() && !PlateArranging::fits(PlateArranging::excess(box, volume)))
            m_marks.push_back({box, FitText::misfit(box, room)});
    }
    while (m_notes.size() > std::min(m_marks.size(), mostNotes)) {
        delete m_notes.back();
        m_notes.pop_back();
    }
    while (m_notes.size() < std::min(m_marks.size(), mostNotes))
        m_notes.push_back(new OverlayLabel(m_view, "MisfitNote"));
    for (std::size_t i = 0; i < m_notes.size(); ++i) {
        m_notes[i]->setText(m_marks[i].text);
        m_notes[i]->show();
    }
    placeNotes();
    if (hadMarks || !m_marks.empty())
        m_view.redraw();
}

// At the corner of the box that is topmost on the screen.
void MisfitMarks::placeNotes()
{
    for (std::size_t i = 0; i < m_notes.size(); ++i) {
        QPoint top;
        for (int corner = 0; corner < 8; ++corner) {
            QPoint place;
            m_view.getWidgetcoordFromWCS(cornerOf(m_marks[i].box, corner), place.rx(), place.ry());
            if (corner == 0 || place.y() < top.y())
                top = place;
        }
        m_notes[i]->putBeside(top);
        QRect const cube(m_view.width() - cubePixels, 0, cubePixels, cubePixels);
        if (m_notes[i]->geometry().intersects(cube))
            m_notes[i]->move(std::max(0, cube.left() - m_notes[i]->width()), m_notes[i]->y());
    }
}

bool MisfitMarks::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        placeNotes();
    if (event->type() == QEvent::LanguageChange)
        refresh();
    return QObject::eventFilter(watched, event);
}

void MisfitMarks::paintGL()
{
    // Nothing but a picture tells that the parts are drawn apart.
    if (m_wasShown != isShown())
        QMetaObject::invokeMethod(this, &MisfitMarks::refresh, Qt::QueuedConnection);
    if (!isShown())
        return;
    for (Mark const& mark : m_marks)
        Base::drawLines(m_view, edgesOf(mark.box), boxLook);
}
