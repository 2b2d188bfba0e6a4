// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/MissedParts.h"

#include "cutjobs/common/PartMesh.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/ui/Theme.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

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

/// Where the plane meets the part the first points tell it, for they lie on both sides soon.
bool isMet(Mesh::DocumentObject const& part, MissedParts::Scene const& scene)
{
    MeshKernel const* const kernel = kernelOfPart(&part);
    if (!kernel || !boxIsMet(part.getBoundingBox(), scene))
        return !kernel;
    Sides sides;
    auto const mesh = kernel->readMesh();
    for (auto const* const vertex : mesh->vertices) {
        sides.offer(heightOf(kernel->getMatrix() * vertex->cP(), scene));
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
    std::vector<Mesh::DocumentObject const*> missed;
    if (scene)
        for (Mesh::DocumentObject const* const part : scene->parts)
            if (!isMet(*part, *scene))
                missed.push_back(part);
    setVisible(!missed.empty());
    if (missed.empty())
        return clear();
    QString const first = QString::fromStdString(missed.front()->getName());
    QString const text = textFor(first, int(missed.size()) - 1);
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
