// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/tools/MeasureTool.h"

#include "app/tools/MeasuredText.h"
#include "app/view/OverlayLabel.h"
#include "host/view/PickReadiness.h"
#include "platform/document/Document.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/view/ClickReach.h"
#include "platform/view/MeshGLView.h"
#include "platform/view/OverlayLines.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace {

using Measuring::SurfacePoint;

constexpr int cornerReachPixels = 8;
constexpr int edgeReachPixels = 6;
constexpr double crossPixels = 7;
constexpr Base::OverlayLook lineLook{0xd02020ff, 2.5f, false};
constexpr Base::OverlayLook edgeLook{0xd02020ff, 4, false};
constexpr Base::OverlayLook faceLook{0xd0202090, 1.5f, false};

UPoint3<float> narrowed(UPoint3<double> const& p)
{
    return {float(p.X()), float(p.Y()), float(p.Z())};
}

QPoint onScreen(Base::GLView const& view, UPoint3<float> const& point)
{
    QPoint position;
    view.getWidgetcoordFromWCS(point, position.rx(), position.ry());
    return position;
}

/// The corner of the triangle near the mouse; none if all are farther.
std::optional<UPoint3<float>> cornerNear(Mesh::GLView const& view, Mesh::GLView::Pick const& pick,
                                         QPoint position)
{
    UMatrix4<float> const matrix = pick.part->getMatrix();
    std::optional<UPoint3<float>> nearest;
    int least = cornerReachPixels + 1;
    for (int corner = 0; corner < 3; ++corner) {
        UPoint3<float> const place = matrix * pick.triangle->cP(corner);
        int const way = (onScreen(view, place) - position).manhattanLength();
        if (way < least) {
            least = way;
            nearest = place;
        }
    }
    return nearest;
}

}  // namespace

constinit Base::Type MeasureTool::classTypeId;

void MeasureTool::init()
{
    if (classTypeId.isBad())
        initSubclass(classTypeId, name, "Base::AbstractMouseSelection", create);
}

void* MeasureTool::create()
{
    return static_cast<BaseClass*>(new MeasureTool);
}

MeasureTool::~MeasureTool()
{
    delete m_label;
}

Base::Type MeasureTool::getTypeId() const
{
    return classTypeId;
}

std::string MeasureTool::getClassName() const
{
    return name;
}

void MeasureTool::initialize()
{
    QObject::connect(&m_probe, &WallProbe::found, &m_probe, [this](bool hasWall, double thickness) {
        enterWall(hasWall ? std::optional(thickness) : std::nullopt);
    });
    QObject::connect(&m_surroundings, &SurroundingsProbe::found, &m_surroundings,
                     [this] { show(); });
    if (Base::Document* const document = m_view->getDocument()) {
        document->signalObjectChanged.connect(this, &MeasureTool::objectChanged);
        document->signalDelObject.connect(this, &MeasureTool::objectWent);
    }
}

void MeasureTool::terminate()
{
    disconnect_all();
    clear();
}

int MeasureTool::mousePressEvent(QMouseEvent* event)
{
    m_isPressed = event->button() == Qt::LeftButton;
    m_press = event->pos();
    return 0;
}

int MeasureTool::mouseMoveEvent(QMouseEvent* event)
{
    if (isBeyondClick(event->pos() - m_press))
        m_isPressed = false;
    if (event->buttons() == Qt::NoButton && m_places.empty())
        hover(event->pos());
    return 0;
}

int MeasureTool::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_isPressed || event->button() != Qt::LeftButton)
        return 0;
    m_isPressed = false;
    take(event->pos());
    return 1;
}

int MeasureTool::keyPressEvent(QKeyEvent* event)
{
    if (!event->matches(QKeySequence::Copy) || m_text.isEmpty())
        return AbstractMouseSelection::keyPressEvent(event);
    QGuiApplication::clipboard()->setText(m_text);
    return 1;
}

void MeasureTool::take(QPoint position)
{
    auto const* const view = dynamic_cast<Mesh::GLView const*>(m_view);
    Mesh::GLView::Pick pick;
    if (!view || !view->pickPoint(position, pick))
        return clear();
    if (m_places.size() == 2) {
        m_places.clear();
        m_surroundings.clear();
    }
    auto const corner = cornerNear(*view, pick, position);
    UPoint3<float> const point = corner.value_or(pick.point);
    SurfacePoint place;
    place.point = {point.X(), point.Y(), point.Z()};
    place.normal = Measuring::outwardNormal(pick.part->getMatrix(), *pick.triangle);
    m_places.push_back(place);
    // A corner is meant by itself.
    if (!corner)
        m_surroundings.ask(int(m_places.size()) - 1, *pick.part->meshProperty->getMesh(), place,
                           edgeReachPixels * millimetresPerPixel());
    m_probe.forget();
    m_wall.clear();
    // From the point under the mouse: through a corner there is no wall.
    if (m_places.size() == 1)
        m_probe.ask(*pick.part->meshProperty->getMesh(),
                    {{pick.point.X(), pick.point.Y(), pick.point.Z()}, place.normal});
    show();
}

void MeasureTool::hover(QPoint position)
{
    auto const* const view = dynamic_cast<Mesh::GLView const*>(m_view);
    Mesh::GLView::Pick pick;
    if (!view || !arePicksQuick(view->scene()) || !view->pickPoint(position, pick)) {
        if (!m_text.isEmpty())
            clear();
        m_probe.forget();
        return;
    }
    m_hovered = position;
    SurfacePoint under;
    under.point = {pick.point.X(), pick.point.Y(), pick.point.Z()};
    under.normal = Measuring::outwardNormal(pick.part->getMatrix(), *pick.triangle);
    m_probe.ask(*pick.part->meshProperty->getMesh(), under);
}

void MeasureTool::enterWall(std::optional<double> const& thickness)
{
    if (m_places.empty())
        return showHovered(thickness);
    m_wall = MeasuredText::wall(thickness);
    show();
}

void MeasureTool::showHovered(std::optional<double> const& thickness)
{
    showText({MeasuredText::wall(thickness)});
    m_label->putBeside(m_hovered);
}

double MeasureTool::millimetresPerPixel() const
{
    double width = 0, height = 0;
    m_view->getCamera()->get_view_rect(width, height);
    return height / m_view->height();
}

void MeasureTool::clear()
{
    m_probe.forget();
    m_surroundings.clear();
    m_places.clear();
    m_text.clear();
    delete m_label;
    m_view->redraw();
}

void MeasureTool::show()
{
    QStringList lines;
    if (m_places.size() == 1) {
        if (!m_wall.isEmpty())
            lines << m_wall;
        if (auto const* const around = m_surroundings.at(0))
            lines << MeasuredText::of(*around);
    } else {
        lines << MeasuredText::between(m_places[0], m_places[1])
              << MeasuredText::betweenEnds({m_places[0], m_surroundings.at(0)},
                                           {m_places[1], m_surroundings.at(1)});
    }
    showText(lines);
    m_view->redraw();
}

void MeasureTool::showText(QStringList const& lines)
{
    m_text = lines.join('\n');
    if (!m_label)
        m_label = new OverlayLabel(*m_view, "Measure");
    m_label->setText(m_text);
    m_label->setVisible(!m_text.isEmpty());
}

void MeasureTool::draw()
{
    if (m_places.empty())
        return;
    drawSurroundings();
    auto const reach = float(crossPixels * millimetresPerPixel());
    UVector3<float> const up = m_view->getViewUpDirection();
    UVector3<float> const right = up * m_view->getViewDirection();
    std::vector<UPoint3<float>> points;
    for (SurfacePoint const& place : m_places)
        for (UVector3<float> const& side : {up, right}) {
            points.push_back(narrowed(place.point) + side * reach);
            points.push_back(narrowed(place.point) - side * reach);
        }
    if (m_places.size() == 2) {
        points.push_back(narrowed(m_places[0].point));
        points.push_back(narrowed(m_places[1].point));
    }
    Base::drawLines(*m_view, points, lineLook);
    if (m_label)
        m_label->putBeside(onScreen(*m_view, narrowed(m_places.back().point)));
}

// The edge that is meant, else the outline of the face.
void MeasureTool::drawSurroundings() const
{
    for (int number = 0; number < int(m_places.size()); ++number) {
        Measuring::Surroundings const* const around = m_surroundings.at(number);
        if (!around)
            continue;
        std::vector<UPoint3<float>> points;
        auto const add = [&](Measuring::Edge const& edge) {
            points.push_back(narrowed(edge.from));
            points.push_back(narrowed(edge.to));
        };
        if (around->edge)
            add(*around->edge);
        else if (around->face)
            std::for_each(around->face->outline.begin(), around->face->outline.end(), add);
        if (!points.empty())
            Base::drawLines(*m_view, points, around->edge ? edgeLook : faceLook);
    }
}
