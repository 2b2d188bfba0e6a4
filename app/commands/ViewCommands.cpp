// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/ViewCommands.h"

#include "app/commands/CheckableCommand.h"
#include "app/commands/PictureDialog.h"
#include "app/view/ViewAppearance.h"
#include "host/view/ViewPicture.h"
#include "platform/document/MeshDocument.h"
#include "platform/jobs/Exceptions.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/GLView.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QPointer>
#include <QStandardPaths>

#include <functional>

namespace {

Base::GLView* activeView()
{
    return MainWindow::getInstance() ? MainWindow::getInstance()->activeGLView() : nullptr;
}

class StandardViewCommand : public HostCommand
{
public:
    StandardViewCommand(char const* name, Texts const& texts, int viewType)
        : HostCommand(name, texts), m_viewType(viewType)
    {}

    bool changesDocument() const override { return false; }

    void activated(int) override
    {
        if (Base::GLView* const view = activeView())
            view->OnViewType(m_viewType);
    }

private:
    int m_viewType;
};

class FitAllCommand : public HostCommand
{
public:
    FitAllCommand()
        : HostCommand("Std_FitAll", {QT_TRANSLATE_NOOP("HostCommand", "&Fit All"),
                                     QT_TRANSLATE_NOOP("HostCommand",
                                                       "Bring all visible parts into the picture."),
                                     "app_fit_all", "F"})
    {}

    bool changesDocument() const override { return false; }
    QString whyInactive() const override { return whyNoPart(); }

    void activated(int) override
    {
        if (Base::GLView* const view = activeView())
            view->fitAll();
    }
};

class FitSelectionCommand : public HostCommand
{
public:
    FitSelectionCommand()
        : HostCommand(
              "Std_FitSelection",
              {QT_TRANSLATE_NOOP("HostCommand", "Fit &Selection"),
               QT_TRANSLATE_NOOP("HostCommand", "Bring the selected parts into the picture."),
               "app_fit_selection", "Shift+F"})
    {}

    bool changesDocument() const override { return false; }
    QString whyInactive() const override { return whyNothingSelected(); }

    void activated(int) override
    {
        if (Base::GLView* const view = activeView())
            view->fitSelection();
    }
};

class ScreenshotCommand : public HostCommand
{
public:
    ScreenshotCommand()
        : HostCommand("Std_Screenshot",
                      {QT_TRANSLATE_NOOP("HostCommand", "Save &Picture..."),
                       QT_TRANSLATE_NOOP("HostCommand", "Save the picture of the view to a file."),
                       "app_screenshot", "F12"})
    {}

    bool changesDocument() const override { return false; }

    void activated(int) override
    {
        Base::GLView* const view = activeView();
        if (!view)
            return;
        PictureDialog dialog(view->size() * view->devicePixelRatioF(), MainWindow::getInstance());
        if (dialog.exec() != QDialog::Accepted)
            return;
        QString const folder =
            QStandardPaths::writableLocation(QStandardPaths::PicturesLocation) + "/orbe.png";
        QString const file = QFileDialog::getSaveFileName(
            MainWindow::getInstance(), translated(QT_TRANSLATE_NOOP("HostCommand", "Save Picture")),
            folder, translated(QT_TRANSLATE_NOOP("HostCommand", "PNG pictures (*.png)")));
        QString reason;
        if (file.isEmpty())
            return;
        QImage const picture =
            takePicture(*view, dialog.pictureSize(), dialog.isTransparent(), &reason);
        if (picture.isNull() || !savePicture(picture, file, &reason))
            throw Mell::Exception(reason.toStdString());
    }
};

/// Switches one trait of the view's appearance, or sets it to one value and shows whether it is
/// that.
class AppearanceCommand : public CheckableCommand
{
public:
    using Get = std::function<bool(ViewAppearance const&)>;
    using Set = std::function<void(ViewAppearance&)>;

    AppearanceCommand(char const* name, Texts const& texts, ViewAppearance& appearance, Get get,
                      Set set)
        : CheckableCommand(name, texts),
          m_appearance(&appearance),
          m_get(std::move(get)),
          m_set(std::move(set))
    {}

    bool changesDocument() const override { return false; }
    bool isChecked() const override { return m_appearance && m_get(*m_appearance); }

    void activated(int) override
    {
        if (m_appearance)
            m_set(*m_appearance);
    }

private:
    QPointer<ViewAppearance> m_appearance;
    Get m_get;
    Set m_set;
};

struct StandardView
{
    char const* name;
    char const* menu;
    char const* icon;
    char const* keys;
};

char const* const viewToolTip =
    QT_TRANSLATE_NOOP("HostCommand", "Look at the parts from this side.");

// In the order of the view types.
constexpr StandardView standardViews[] = {
    {"Std_View0", QT_TRANSLATE_NOOP("HostCommand", "Fr&ont"), "app_view_front", "1"},
    {"Std_View1", QT_TRANSLATE_NOOP("HostCommand", "&Back"), "app_view_back", "2"},
    {"Std_View2", QT_TRANSLATE_NOOP("HostCommand", "&Top"), "app_view_top", "3"},
    {"Std_View3", QT_TRANSLATE_NOOP("HostCommand", "Botto&m"), "app_view_bottom", "4"},
    {"Std_View4", QT_TRANSLATE_NOOP("HostCommand", "&Left"), "app_view_left", "5"},
    {"Std_View5", QT_TRANSLATE_NOOP("HostCommand", "&Right"), "app_view_right", "6"},
    {"Std_View6", QT_TRANSLATE_NOOP("HostCommand", "&Isometric"), "app_view_iso", "0"},
};

void registerProjection(Base::CommandManager& manager, ViewAppearance& appearance)
{
    manager.addCommand(new AppearanceCommand(
        "Std_Perspective",
        {QT_TRANSLATE_NOOP("HostCommand", "&Perspective"),
         QT_TRANSLATE_NOOP("HostCommand", "Show what is farther away smaller."), "app_perspective",
         "P"},
        appearance, [](auto const& view) { return view.isPerspective(); },
        [](auto& view) { view.setPerspective(true); }));
    manager.addCommand(new AppearanceCommand(
        "Std_Parallel",
        {QT_TRANSLATE_NOOP("HostCommand", "P&arallel"),
         QT_TRANSLATE_NOOP("HostCommand", "Show equal lengths equal, near and far."),
         "app_parallel", "O"},
        appearance, [](auto const& view) { return !view.isPerspective(); },
        [](auto& view) { view.setPerspective(false); }));
}

}  // namespace

void registerViewCommands(Base::CommandManager& manager, ViewAppearance& appearance)
{
    int viewType = 0;
    for (StandardView const& view : standardViews)
        manager.addCommand(new StandardViewCommand(
            view.name, {view.menu, viewToolTip, view.icon, view.keys}, viewType++));
    manager.addCommand(new FitAllCommand);
    manager.addCommand(new FitSelectionCommand);
    manager.addCommand(new ScreenshotCommand);
    registerProjection(manager, appearance);
    manager.addCommand(new AppearanceCommand(
        "Std_ShowEdges",
        {QT_TRANSLATE_NOOP("HostCommand", "Show &Edges"),
         QT_TRANSLATE_NOOP("HostCommand", "Show the edges of the triangles on the parts."),
         "app_wireframe", "W"},
        appearance, [](auto const& view) { return view.showsEdges(); },
        [](auto& view) { view.setShowsEdges(!view.showsEdges()); }));
    manager.addCommand(new AppearanceCommand(
        "Std_ShowPlate",
        {QT_TRANSLATE_NOOP("HostCommand", "Sho&w Build Plate"),
         QT_TRANSLATE_NOOP("HostCommand", "Show the build plate with its grid."), "app_plate", "B"},
        appearance, [](auto const& view) { return view.showsPlate(); },
        [](auto& view) { view.setShowsPlate(!view.showsPlate()); }));
    manager.addCommand(new AppearanceCommand(
        "Std_TintParts",
        {QT_TRANSLATE_NOOP("HostCommand", "Colo&ur Parts in Turn"),
         QT_TRANSLATE_NOOP("HostCommand",
                           "Tell parts that have no colour of their own from each other by some."),
         "app_color"},
        appearance, [](auto const& view) { return view.tintsParts(); },
        [](auto& view) { view.setTintsParts(!view.tintsParts()); }));
}
