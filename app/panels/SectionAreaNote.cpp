// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/SectionAreaNote.h"

#include "app/parts/SectionArea.h"
#include "app/view/MeasureText.h"
#include "app/view/OverlayLabel.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/DocumentFollower.h"
#include "platform/view/MeshGLView.h"

#include <QEvent>

namespace {

constexpr int marginPixels = 10;
/// The axes stand in the corner below.
constexpr int axesPixels = 90;

}  // namespace

SectionAreaNote::SectionAreaNote(Mesh::GLView& view)
    : QObject(&view), m_view(view), m_follower(new DocumentFollower(this))
{
    m_thread.setMaxThreadCount(1);
    view.addGraphicsItem(this);
    view.installEventFilter(this);
    connect(m_follower, &DocumentFollower::changed, this, &SectionAreaNote::refresh);
    connect(m_follower, &DocumentFollower::replaced, this, &SectionAreaNote::refresh);
    connect(&DisplayUnit::instance(), &DisplayUnit::changed, this, [this] {
        if (m_label)
            show(m_area);
    });
}

SectionAreaNote::~SectionAreaNote()
{
    ++*m_number;
    m_thread.clear();
    m_thread.waitForDone();
    // A view that is going with all its children is no more than a widget by then.
    if (qobject_cast<Base::GLView*>(parent()))
        m_view.removeGraphicsItem(this);
}

QString SectionAreaNote::text() const
{
    return m_label ? m_label->text() : QString();
}

std::optional<SectionAreaNote::Plane> SectionAreaNote::plane() const
{
    if (auto const& cut = m_view.sectionPlane(); cut && cut->normal.GetLength() > 0)
        return Plane{cut->point, cut->normal};
    if (auto const& cut = m_view.liveCut())
        return Plane{cut->point, cut->normal};
    return {};
}

// Nothing but a picture tells that the plane is another one.
void SectionAreaNote::paintGL()
{
    if (plane() != m_plane)
        QMetaObject::invokeMethod(this, &SectionAreaNote::refresh, Qt::QueuedConnection);
}

void SectionAreaNote::refresh()
{
    m_plane = plane();
    auto const* const document = dynamic_cast<Mesh::Document const*>(m_follower->document());
    if (!m_plane || !document) {
        ++*m_number;
        m_asked.reset();
        dropLabel();
        emit changed();
        return;
    }
    Question question{*m_plane, {}};
    for (Mesh::DocumentObject const* const part : document->getMeshObjects()) {
        MeshKernel const* const kernel = part->meshProperty->getMesh();
        auto mesh = kernel && part->isVisible() ? kernel->readMesh() : nullptr;
        if (mesh)
            question.slices.push_back({std::move(mesh), kernel->getMatrix()});
    }
    if (question != m_asked)
        ask(std::move(question));
}

void SectionAreaNote::ask(Question question)
{
    m_asked = question;
    int const number = ++*m_number;
    m_thread.clear();
    m_thread.start([this, number, latest = m_number, asked = std::move(question)] {
        auto const isUnwanted = [&] { return *latest != number; };
        auto const& [point, normal] = asked.plane;
        std::optional<double> area = 0.0;
        for (Slice const& slice : asked.slices) {
            auto const more =
                sectionArea(*slice.mesh, slice.placement, {point.X(), point.Y(), point.Z()},
                            {normal.X(), normal.Y(), normal.Z()}, isUnwanted);
            if (isUnwanted())
                return;
            area = area && more ? std::optional(*area + *more) : std::nullopt;
        }
        QMetaObject::invokeMethod(
            this, [this, number, area] { take(number, area); }, Qt::QueuedConnection);
    });
}

void SectionAreaNote::take(int number, std::optional<double> area)
{
    if (number == *m_number)
        show(area);
}

void SectionAreaNote::show(std::optional<double> area)
{
    if (!m_asked)
        return;
    m_area = area;
    if (!m_label)
        m_label = new OverlayLabel(m_view, "SectionArea");
    m_label->setText(area ? tr("Area of the cut: %1").arg(MeasureText::areaMm2(*area))
                          : tr("Area of the cut: unknown, a part is open there"));
    m_label->show();
    place();
    emit changed();
}

// In the lower left corner, above the axes.
void SectionAreaNote::place()
{
    if (!m_label)
        return;
    m_label->adjustSize();
    m_label->move(marginPixels, std::max(0, m_view.height() - axesPixels - m_label->height()));
}

void SectionAreaNote::dropLabel()
{
    delete m_label;
    m_label = nullptr;
}

bool SectionAreaNote::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        place();
    if (event->type() == QEvent::LanguageChange && m_label)
        show(m_area);
    return QObject::eventFilter(watched, event);
}
