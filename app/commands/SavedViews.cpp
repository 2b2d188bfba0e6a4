// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/SavedViews.h"

#include "app/view/ViewAppearance.h"
#include "platform/view/MeshGLView.h"

#include <algorithm>

namespace {

using Formats::ProjectCamera;
using Formats::ProjectObject;

template <typename Triple>
std::array<double, 3> numbersOf(Triple const& triple)
{
    return {triple.X(), triple.Y(), triple.Z()};
}

UVector3<double> vectorOf(std::array<double, 3> const& numbers)
{
    return {numbers[0], numbers[1], numbers[2]};
}

ProjectCamera cameraOf(Mesh::GLView const& view, bool isPerspective)
{
    GLCamera camera = *view.getCamera();
    camera.recentre();
    ProjectCamera kept{numbersOf(camera.get_direction()), numbersOf(camera.get_vecUp()),
                       numbersOf(camera.get_ref())};
    double width = 0;
    camera.get_view_rect(width, kept.height);
    kept.isPerspective = isPerspective;
    return kept;
}

void lookFrom(Mesh::GLView& view, ProjectCamera const& kept)
{
    // A move that is not painted yet would hide the turn from the tools.
    view.paintPending();
    GLCamera& camera = *view.getCamera();
    camera.recentre();
    camera.set_axes(vectorOf(kept.direction), vectorOf(kept.up));
    UVector3<double> middle = vectorOf(kept.middle);
    if (view.isDrawnIn()) {
        // Tools draw at a depth that is counted from the reference plane.
        UVector3<double> const now = vectorOf(numbersOf(camera.get_ref()));
        UVector3<double> const direction = vectorOf(kept.direction);
        middle = middle + direction * ((now - middle) | direction);
    }
    camera.set_ref(float(middle.X()), float(middle.Y()), float(middle.Z()), true);
    camera.set_view_height(kept.height);
    emit view.signalCameraChanged();
    view.redraw();
}

auto placeOf(DocumentFiles::Views& views, QString const& name)
{
    return std::find_if(views.begin(), views.end(),
                        [&](ProjectObject const& view) { return view.name == name.toStdString(); });
}

}  // namespace

SavedViews::SavedViews(Mesh::GLView& view, ViewAppearance& appearance, DocumentFiles& files,
                       QObject* parent)
    : QObject(parent), m_view(view), m_appearance(appearance), m_files(files)
{
    connect(&files, &DocumentFiles::viewsChanged, this, &SavedViews::changed);
}

QStringList SavedViews::names() const
{
    QStringList names;
    for (ProjectObject const& view : m_files.views())
        names << QString::fromStdString(view.name);
    return names;
}

QString SavedViews::freeName() const
{
    QStringList const taken = names();
    int number = 1;
    while (taken.contains(tr("View %1").arg(number)))
        ++number;
    return tr("View %1").arg(number);
}

void SavedViews::save(QString const& name)
{
    DocumentFiles::Views views = m_files.views();
    auto place = placeOf(views, name);
    if (place == views.end()) {
        if (int(views.size()) >= most)
            return;
        place = views.emplace(views.end());
        place->kind = ProjectObject::Kind::View;
        place->name = name.toStdString();
    }
    place->camera = cameraOf(m_view, m_appearance.isPerspective());
    m_files.setViews(std::move(views));
}

void SavedViews::remove(QString const& name)
{
    DocumentFiles::Views views = m_files.views();
    auto const place = placeOf(views, name);
    if (place == views.end())
        return;
    views.erase(place);
    m_files.setViews(std::move(views));
}

void SavedViews::show(int number)
{
    if (number < 0 || number >= int(m_files.views().size()))
        return;
    ProjectCamera const kept = m_files.views()[std::size_t(number)].camera;
    m_appearance.setPerspective(kept.isPerspective);
    lookFrom(m_view, kept);
}
