// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/WindowCommands.h"

#include "app/StartOptions.h"
#include "app/commands/CheckableCommand.h"
#include "app/window/PanelPlaces.h"
#include "app/window/ShortcutList.h"
#include "platform/ui/Application.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/view/GLView.h"
#include "platform/view/OpenGLPath.h"

#include <QGuiApplication>
#include <QMessageBox>

namespace {

class WindowCommand : public HostCommand
{
public:
    using HostCommand::HostCommand;
    bool changesDocument() const override { return false; }
};

class FullScreenCommand : public CheckableCommand
{
public:
    FullScreenCommand()
        : CheckableCommand("Std_FullScreen",
                           {QT_TRANSLATE_NOOP("HostCommand", "&Full Screen"),
                            QT_TRANSLATE_NOOP("HostCommand", "Let the window fill the screen."),
                            "app_full_screen", "F11"})
    {}

    bool changesDocument() const override { return false; }
    bool isChecked() const override
    {
        return MainWindow::getInstance() && MainWindow::getInstance()->isFullScreen();
    }

    void activated(int) override
    {
        if (MainWindow* const window = MainWindow::getInstance())
            window->setWindowState(window->windowState() ^ Qt::WindowFullScreen);
    }
};

class ResetLayoutCommand : public WindowCommand
{
public:
    ResetLayoutCommand()
        : WindowCommand(
              "Std_ResetLayout",
              {QT_TRANSLATE_NOOP("HostCommand", "&Reset Layout"),
               QT_TRANSLATE_NOOP("HostCommand", "Put the panels back where they were at first.")})
    {}

    void activated(int) override
    {
        if (auto* const places = dynamic_cast<PanelPlaces*>(MainWindow::getInstance()))
            places->resetLayout();
    }
};

class ShortcutsCommand : public WindowCommand
{
public:
    ShortcutsCommand()
        : WindowCommand("Std_Shortcuts",
                        {QT_TRANSLATE_NOOP("HostCommand", "&Keyboard and Mouse"),
                         QT_TRANSLATE_NOOP("HostCommand", "List all shortcuts."), "app_help", "?"})
    {}

    void activated(int) override
    {
        MainWindow* const window = MainWindow::getInstance();
        Base::GLView const* const view = window ? window->activeGLView() : nullptr;
        auto* const list = new ShortcutList(
            Application::Instance->commandManager(),
            view ? view->navigationStyle()->preset() : ShortcutList::Preset::TurnByRight, window);
        list->setAttribute(Qt::WA_DeleteOnClose);
        list->show();
    }
};

class AboutCommand : public WindowCommand
{
public:
    AboutCommand()
        : WindowCommand("Std_About",
                        {QT_TRANSLATE_NOOP("HostCommand", "&About"),
                         QT_TRANSLATE_NOOP("HostCommand", "Show the version."), "app_info"})
    {}

    void activated(int) override
    {
        QString const drawing = g_OPENGL_3_3 ? "OpenGL 3.3" : "OpenGL 2.1";
        QString const text =
            translated(QT_TRANSLATE_NOOP(
                           "HostCommand",
                           "<h3>%1 %2</h3><p>Cuts triangle meshes into parts for 3D printing."
                           "</p><p>Free software under the GNU General Public License, version 3 "
                           "or later, without any warranty.</p><p>Drawing by %3; Qt %4.</p>"))
                .arg(QGuiApplication::applicationDisplayName(), StartOptions::version(), drawing,
                     QString::fromLatin1(qVersion()));
        QMessageBox::about(MainWindow::getInstance(),
                           translated(QT_TRANSLATE_NOOP("HostCommand", "About")), text);
    }
};

}  // namespace

void registerWindowCommands(Base::CommandManager& manager)
{
    manager.addCommand(new FullScreenCommand);
    manager.addCommand(new ResetLayoutCommand);
    manager.addCommand(new ShortcutsCommand);
    manager.addCommand(new AboutCommand);
}
