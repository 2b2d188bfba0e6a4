// SPDX-License-Identifier: GPL-3.0-or-later
#include "selection/RunningEdge.h"

#include "display/RubberLine.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/Quantity.h"
#include "platform/view/MeshGLView.h"
#include "selection/PointSnap.h"
#include "selection/RoundSteps.h"
#include "tools/PartSection.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStatusBar>

#include <algorithm>
#include <array>

namespace Freecut {

namespace {

using Point = UPoint3<float>;

/// In pixels, as for handles.
constexpr float snapReach = 8;

Place placeOf(Base::GLView const& view, Point point)
{
    view.getEyePointFromWCSPoint(point);
    return {point.X(), point.Y()};
}

float inMillimetres(Base::GLView const& view, float pixels)
{
    UPoint3<float> const here = view.getEyePointOnScreen({0, 0});
    UPoint3<float> const there = view.getEyePointOnScreen({pixels, 0});
    return (there - here).GetLength();
}

/// The triangles of parts around a position.
void addParts(SnapTargets& targets, Base::GLView const& view, QPoint mouse)
{
    auto const* const meshView = dynamic_cast<Mesh::GLView const*>(&view);
    if (!meshView)
        return;
    int const reach = int(snapReach) - 1;
    // What stands out against the background is often just missed.
    for (QPoint const& way :
         {QPoint(0, 0), QPoint(reach, 0), QPoint(-reach, 0), QPoint(0, reach), QPoint(0, -reach)}) {
        Mesh::DocumentObject* part = nullptr;
        UTriangle<float>* triangle = nullptr;
        if (!meshView->pickFace(mouse + way, part, triangle, false, false, false))
            continue;
        UMatrix4<float> const& matrix = part->meshProperty->getMesh()->getMatrix();
        std::array<Place, 3> corners;
        for (std::size_t i = 0; i < 3; ++i)
            corners[i] = placeOf(view, matrix * triangle->cP(int(i)));
        for (std::size_t i = 0; i < 3; ++i) {
            targets.corners.push_back(corners[i]);
            targets.edges.emplace_back(corners[i], corners[(i + 1) % 3]);
        }
    }
}

/// What of the section lies so near to a place that it may be drawn to it.
void addSection(SnapTargets& targets, Base::GLView const& view, Place const& place, float reach,
                SectionLines const& section)
{
    for (Point const& corner : section.corners)
        targets.corners.push_back(placeOf(view, corner));
    for (auto const& [from, to] : section.lines) {
        Place const a = placeOf(view, from), b = placeOf(view, to);
        auto const isBeside = [reach](float value, float end, float otherEnd) {
            return value + reach < std::min(end, otherEnd) ||
                   value - reach > std::max(end, otherEnd);
        };
        if (!isBeside(place.X(), a.X(), b.X()) && !isBeside(place.Y(), a.Y(), b.Y()))
            targets.edges.emplace_back(a, b);
    }
}

/// The outline as it is without the point.
void addOutline(SnapTargets& targets, Base::GLView const& view, RunningEdge::Spot const& spot)
{
    std::size_t const n = spot.others.size();
    for (Point const& other : spot.others)
        targets.aligned.push_back(placeOf(view, other));
    for (std::size_t i = 0; n > 2 && i < n; ++i)
        if (spot.isNew || (i + 1) % n != spot.index % n)
            targets.edges.emplace_back(targets.aligned[i], targets.aligned[(i + 1) % n]);
}

QString textOf(EdgeMeasure const& edge)
{
    DisplayUnit const& unit = DisplayUnit::instance();
    return QStringLiteral("%1 %2, %3°")
        .arg(Base::Quantity::toUserString(edge.length, Base::Unit::length, 'f', unit.decimals(),
                                          ' ', true),
             unit.symbol(), QLocale().toString(edge.degrees, 'f', 1));
}

}  // namespace

RunningEdge::RunningEdge() = default;

RunningEdge::~RunningEdge()
{
    hide();
    remove();
}

bool RunningEdge::isHolding(Qt::KeyboardModifiers keys)
{
    return keys == Qt::ShiftModifier || keys == Qt::ControlModifier;
}

Point RunningEdge::held(Base::GLView const& view, Point const& point, QPoint mouse,
                        Spot const& spot, Qt::KeyboardModifiers keys, SectionLines const& section)
{
    if (!isHolding(keys))
        return point;
    Point eye = point;
    view.getEyePointFromWCSPoint(eye);
    Place place(eye.X(), eye.Y());
    std::size_t const n = spot.others.size();
    if (keys == Qt::ControlModifier) {
        SnapTargets targets;
        float const reach = inMillimetres(view, snapReach);
        addParts(targets, view, mouse);
        addSection(targets, view, place, reach, section);
        addOutline(targets, view, spot);
        place = snapped(place, targets, reach);
    } else if (n > 0) {
        place = onRoundEdge(placeOf(view, spot.others[(spot.index + n - 1) % n]), place,
                            gridStep(view));
    }
    Point moved(place.X(), place.Y(), eye.Z());
    view.getWCSPointFromEyePoint(moved);
    return moved;
}

void RunningEdge::show(Base::GLView& view, Point const& point, Spot const& spot, bool isDrawn)
{
    std::size_t const n = spot.others.size();
    if (n == 0) {
        hide();
        return;
    }
    Point const& before = spot.others[(spot.index + n - 1) % n];
    Point const& after = spot.others[spot.index % n];
    Place const place = placeOf(view, point);
    auto const translated = [](char const* text) {
        return QCoreApplication::translate("Freecut::PolygoncutSelection", text);
    };
    m_told = translated(QT_TRANSLATE_NOOP("Freecut::PolygoncutSelection", "Edge: %1"))
                 .arg(textOf(measureEdge(placeOf(view, before), place)));
    if (n > 1)
        m_told =
            translated(QT_TRANSLATE_NOOP("Freecut::PolygoncutSelection", "Edge: %1. Next edge: %2"))
                .arg(textOf(measureEdge(placeOf(view, before), place)),
                     textOf(measureEdge(place, placeOf(view, after))));
    m_told += QStringLiteral("   ") +
              translated(QT_TRANSLATE_NOOP(
                  "Freecut::PolygoncutSelection",
                  "Shift: 15 degrees. Ctrl: points, edges, section. Both: drag it all."));
    if (MainWindow* const window = MainWindow::getInstance())
        window->statusBar()->showMessage(m_told);
    if (isDrawn)
        draw(view,
             n > 1 ? std::vector<Point>{before, point, after} : std::vector<Point>{before, point});
    else
        hideLine();
}

void RunningEdge::draw(Base::GLView& view, std::vector<Point> const& line)
{
    if (!m_line) {
        m_view = &view;
        m_line = std::make_unique<RubberLine>(&view);
        m_line->setColor(0, 160, 255, 255);
        view.addGraphicsItem(m_line.get());
    }
    m_line->setWorking(true);
    m_line->setParameter(line);
    m_line->updateVBO();
    view.redraw();
}

void RunningEdge::hideLine()
{
    if (!m_line || !m_line->isWorking())
        return;
    m_line->setWorking(false);
    m_view->redraw();
}

void RunningEdge::hide()
{
    hideLine();
    MainWindow* const window = m_told.isEmpty() ? nullptr : MainWindow::getInstance();
    // What somebody else has said since stays.
    if (window && window->statusBar()->currentMessage() == m_told)
        window->statusBar()->clearMessage();
    m_told.clear();
}

void RunningEdge::remove()
{
    if (m_line)
        m_view->removeGraphicsItem(m_line.get());
    m_line.reset();
}

}  // namespace Freecut
