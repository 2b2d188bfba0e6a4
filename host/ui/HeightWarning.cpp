// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ui/HeightWarning.h"

#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/Theme.h"

#include <QEvent>

#include <algorithm>

namespace {

// Whether a part ends, or begins, at a height.

auto endsAt(float height)
{
    return [height](Mesh::DocumentObject const* part) {
        return part->getBoundingBox().MaxZ() == height;
    };
}

auto beginsAt(float height)
{
    return [height](Mesh::DocumentObject const* part) {
        return part->getBoundingBox().MinZ() == height;
    };
}

}  // namespace

HeightWarning::HeightWarning(QWidget* parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("HeightWarning"));
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignHCenter);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    setColor();
    hide();
}

void HeightWarning::setColor()
{
    QPalette colors = palette();
    colors.setColor(foregroundRole(), themeColor("caution"));
    setPalette(colors);
}

void HeightWarning::refresh(Base::Document const* document, float height)
{
    auto const* const parts = dynamic_cast<Mesh::Document const*>(document);
    auto chosen = parts ? parts->getSelectedMeshObjects() : std::vector<Mesh::DocumentObject*>();
    bool const isSelection = !chosen.empty();
    if (parts && !isSelection)
        chosen = parts->getPartList();
    bool const isCutHere = std::ranges::any_of(chosen, endsAt(height)) &&
                           std::ranges::any_of(chosen, beginsAt(height));
    Missed missed{0, int(chosen.size()), isSelection, {}};
    for (Mesh::DocumentObject const* const part : chosen) {
        UBox3<float> const box = part->getBoundingBox();
        if (!box.Isnullptr() && height > box.MinZ() && height < box.MaxZ())
            continue;
        // Pieces that were parted here are no mistake of the height.
        if (isCutHere && (endsAt(height)(part) || beginsAt(height)(part)))
            continue;
        if (missed.parts++ == 0)
            missed.first = QString::fromStdString(part->getName());
    }
    // What is not selected is not going to be cut.
    if (!isSelection && missed.parts < missed.all)
        missed.parts = 0;
    show(missed);
}

void HeightWarning::show(Missed const& missed)
{
    if (missed == m_missed)
        return;
    m_missed = missed;
    setVisible(missed.parts > 0);
    setTexts();
}

void HeightWarning::setTexts()
{
    auto const& [parts, all, isSelection, first] = m_missed;
    if (parts < all)
        //: Beside the height, in a narrow column: of how many parts how many are missed.
        setText(tr("misses %1 of %2").arg(parts).arg(all));
    else if (isSelection)
        //: Beside the height, in a narrow column.
        setText(tr("misses the selection"));
    else
        //: Beside the height, in a narrow column.
        setText(tr("meets no part"));
    setToolTip(parts == 1
                   ? tr("A cut at this height does not meet %1.").arg(first)
                   : tr("A cut at this height does not meet %1 and %n more.", nullptr, parts - 1)
                         .arg(first));
}

void HeightWarning::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        setTexts();
    } else if (event->type() == QEvent::StyleChange) {
        setColor();
    }
    QLabel::changeEvent(event);
}
