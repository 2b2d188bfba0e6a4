// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/UnitQuestion.h"

#include "app/files/DocumentFiles.h"
#include "app/files/UnitDialog.h"
#include "app/jobs/JobGuard.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/GLView.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int retryMilliseconds = 50;

double longestSide(Mesh::DocumentObject const& part)
{
    UBox3<float> const box = part.getBoundingBox();
    double longest = 0;
    if (!box.Isnullptr())
        for (int axis = 0; axis < 3; ++axis)
            longest = std::max(longest, double(box.max[axis]) - double(box.min[axis]));
    return longest;
}

/// 3MF files name their unit, and are read in it.
bool namesItsUnit(PartOrigin const& origin)
{
    return origin.file.endsWith(QLatin1String(".3mf"), Qt::CaseInsensitive);
}

}  // namespace

UnitQuestion::UnitQuestion(DocumentFiles& files, QObject* parent) : QObject(parent), m_files(files)
{}

void UnitQuestion::look()
{
    if (JobGuard::instance()->isBusy()) {
        QTimer::singleShot(retryMilliseconds, this, &UnitQuestion::look);
        return;
    }
    auto* const document = dynamic_cast<Mesh::Document*>(activeDocument());
    if (!document)
        return;
    Parts const parts = unknownSmallParts(*document);
    if (!parts.empty())
        askAbout(*document, parts);
}

UnitQuestion::Parts UnitQuestion::unknownSmallParts(Mesh::Document const& document)
{
    std::erase_if(m_known, [](auto const& known) { return known.second.expired(); });
    Parts parts;
    for (Mesh::DocumentObject* const part : document.getMeshObjects()) {
        PartOrigin const* const origin = m_files.origins().of(*part);
        double const size = longestSide(*part);
        if (!origin || namesItsUnit(*origin) || !(size > 0 && size < smallestPlausible))
            continue;
        auto const mesh = part->meshProperty->getMesh()->readMesh();
        if (m_known.emplace(mesh.get(), mesh).second)
            parts.push_back(part);
    }
    return parts;
}

void UnitQuestion::askAbout(Mesh::Document& document, Parts const& parts)
{
    Mesh::DocumentObject const* const largest = *std::max_element(
        parts.begin(), parts.end(),
        [](auto const* a, auto const* b) { return longestSide(*a) < longestSide(*b); });
    UnitDialog dialog(QString::fromStdString(largest->getName()), int(parts.size()),
                      largest->getBoundingBox(), MainWindow::getInstance());
    // Files that were opened meanwhile may have changed what there is.
    if (dialog.exec() != QDialog::Accepted || JobGuard::instance()->isBusy() ||
        activeDocument() != &document)
        return;
    dialog.remember();
    double const factor = dialog.factor();
    if (factor == 1)
        return;
    document.openTransaction(QT_TRANSLATE_NOOP("UndoRedoName", "Scale"));
    for (Mesh::DocumentObject* const part : parts)
        if (document.contains(part))
            part->scale({0, 0, 0}, {float(factor), float(factor), float(factor)});
    document.commitTransaction();
    document.setModified(true);
    if (Base::GLView* const view = document.getView())
        view->fitAll();
}
