// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/MissedParts.h"

#include "cutjobs/common/PartMesh.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/ui/Theme.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <memory>

namespace Freecut {

namespace {

using Point = UPoint3<float>;

double heightOf(Point const& p, MissedParts::Scene const& scene)
{
    UVector3<double> const normal(scene.normal.X(), scene.normal.Y(), scene.normal.Z());
    UVector3<double> const way(double(p.X()) - scene.point.X(), double(p.Y()) - scene.point.Y(),
                               double(p.Z()) - scene.point.Z());
    return normal | way;
}

/// Whether there are points on both sides, as far as they have been offered.
class Sides
{
public:
    void offer(double height)
    {
        m_isAbove = m_isAbove || height > 0;
        m_isBelow = m_isBelow || height < 0;
    }
    bool areBoth() const { return m_isAbove && m_isBelow; }

private:
    bool m_isAbove = false;
    bool m_isBelow = false;
};

bool boxIsMet(UBox3<float> const& box, MissedParts::Scene const& scene)
{
    Sides sides;
    for (int corner = 0; corner < 8; ++corner)
        sides.offer(
            heightOf({corner & 1 ? box.MaxX() : box.MinX(), corner & 2 ? box.MaxY() : box.MinY(),
                      corner & 4 ? box.MaxZ() : box.MinZ()},
                     scene));
    return sides.areBoth();
}

/// A part, as values.
struct Candidate
{
    QString name;
    UMatrix4<float> matrix;
    /// Null if its box is not met: then no point has to be looked at.
    std::shared_ptr<UMesh<float> const> mesh;
};

/// Where the plane meets the part the first points tell it, for they lie on both sides soon.
bool isMet(Candidate const& part, MissedParts::Scene const& scene, NewestWork::Poll const& poll)
{
    if (!part.mesh)
        return false;
    constexpr std::size_t betweenPolls = 1 << 14;
    Sides sides;
    std::size_t count = 0;
    for (auto const* const vertex : part.mesh->vertices) {
        if (++count % betweenPolls == 0)
            poll();
        sides.offer(heightOf(part.matrix * vertex->cP(), scene));
        if (sides.areBoth())
            return true;
    }
    return false;
}

QString textFor(QString const& first, int others)
{
    //: %1 is the name of a part.
    return others == 0
               ? QCoreApplication::translate("Freecut::MissedParts", "The plane does not meet %1.")
                     .arg(first)
               : QCoreApplication::translate("Freecut::MissedParts",
                                             "The plane does not meet %1 and %n more.", nullptr,
                                             others)
                     .arg(first);
}

}  // namespace

MissedParts::MissedParts(QWidget* parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("MissedParts"));
    setWordWrap(true);
    setTextFormat(Qt::RichText);
    hide();
    connect(&m_work, &NewestWork::ready, this, [this] {
        if (!m_work.failure().isEmpty())
            tell({});
    });
}

void MissedParts::refresh()
{
    if (std::exchange(m_isPending, true))
        return;
    // Several changes of one event are one.
    QTimer::singleShot(0, this, [this] {
        m_isPending = false;
        look();
    });
}

void MissedParts::look()
{
    std::optional<Scene> const scene = m_scene ? m_scene() : std::nullopt;
    std::vector<Candidate> candidates;
    bool areBoxesEnough = true;
    if (scene)
        for (Mesh::DocumentObject const* const part : scene->parts)
            if (MeshKernel const* const kernel = kernelOfPart(part)) {
                bool const isNear = boxIsMet(part->getBoundingBox(), *scene);
                candidates.push_back({QString::fromStdString(part->getName()), kernel->getMatrix(),
                                      isNear ? kernel->readMesh() : nullptr});
                areBoxesEnough = areBoxesEnough && !isNear;
            }
    if (areBoxesEnough) {
        m_work.drop();
        QStringList names;
        for (Candidate const& part : candidates)
            names << part.name;
        return tell(names);
    }
    m_work.ask([this, plane = *scene, candidates](NewestWork::Poll const& poll) {
        QStringList missed;
        for (Candidate const& part : candidates)
            if (!isMet(part, plane, poll))
                missed << part.name;
        return [this, missed] { tell(missed); };
    });
}

void MissedParts::tell(QStringList const& missed)
{
    setVisible(!missed.empty());
    if (missed.empty())
        return clear();
    QString const text = textFor(missed.front(), missed.size() - 1);
    setText(QStringLiteral("<span style=\"color:%1\">%2</span>")
                .arg(themeColor("caution").name(), text.toHtmlEscaped()));
}

void MissedParts::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::PaletteChange)
        refresh();
    QLabel::changeEvent(event);
}

}  // namespace Freecut
