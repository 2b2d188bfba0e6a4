// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/FarParts.h"

#include "app/jobs/JobGuard.h"
#include "app/parts/EditStep.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/ActiveDocument.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellMessageBox.h"
#include "platform/view/GLView.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace {

constexpr int retryMilliseconds = 50;

double reachOf(Mesh::DocumentObject const& part)
{
    UBox3<float> const box = part.getBoundingBox();
    double reach = 0;
    if (!box.Isnullptr())
        for (int axis = 0; axis < 3; ++axis)
            reach =
                std::max({reach, std::abs(double(box.min[axis])), std::abs(double(box.max[axis]))});
    return reach;
}

}  // namespace

FarParts::FarParts(QObject* parent) : QObject(parent) {}

double FarParts::factorFor(double reach)
{
    constexpr double wanted = 1e5;
    double factor = 1;
    while (reach * factor > wanted)
        factor /= 1000;
    return factor;
}

void FarParts::look()
{
    if (JobGuard::instance()->isBusy()) {
        QTimer::singleShot(retryMilliseconds, this, &FarParts::look);
        return;
    }
    auto* const document = dynamic_cast<Mesh::Document*>(activeDocument());
    if (!document)
        return;
    std::erase_if(m_known, [](auto const& known) { return known.second.expired(); });
    std::vector<Mesh::DocumentObject*> far;
    double farthest = 0;
    for (Mesh::DocumentObject* const part : document->getMeshObjects()) {
        double const reach = reachOf(*part);
        MeshKernel const* const kernel = part->meshProperty->getMesh();
        if (!(reach > limit) || !kernel)
            continue;
        auto const mesh = kernel->readMesh();
        if (!m_known.emplace(mesh.get(), mesh).second)
            continue;
        far.push_back(part);
        farthest = std::max(farthest, reach);
    }
    if (!far.empty())
        askAbout(*document, far, farthest);
}

void FarParts::askAbout(Mesh::Document& document, std::vector<Mesh::DocumentObject*> const& parts,
                        double reach) const
{
    double const factor = factorFor(reach);
    QString name = QString::fromStdString(parts.front()->getName());
    if (parts.size() > 1)
        name = tr("%1 and %n more", nullptr, int(parts.size()) - 1).arg(name);
    enum
    {
        Scale,
        Leave
    };
    int const answer = MellMessageBox::warning(
        MainWindow::getInstance(), tr("Far Away"),
        tr("%1: the coordinates go up to %2 mm. So far from the origin they are too coarse for a "
           "good cut. Perhaps the file is in another unit. Scale by %3?")
            .arg(name, QLocale().toString(reach, 'f', 0), QLocale().toString(factor, 'g', 3)),
        tr("Scale"), tr("Leave as It Is"), "", Scale, Leave);
    if (answer != Scale || JobGuard::instance()->isBusy())
        return;
    {
        EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Scale"));
        auto const scale = float(factor);
        for (Mesh::DocumentObject* const part : parts)
            if (document.contains(part))
                part->scale({0, 0, 0}, {scale, scale, scale});
    }
    if (Base::GLView* const view = document.getView())
        view->fitAll();
}
