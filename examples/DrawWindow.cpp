// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the pictures of the guide that show the window with the vase and the bracket: draw_window
// FOLDER, from the root of the sources. Needs a display of at least 1280 x 800 that nothing else is
// on.
#include "app/OrbeWindow.h"
#include "app/files/DocumentFiles.h"
#include "app/jobs/JobGuard.h"
#include "app/parts/PartPlacement.h"
#include "host/view/ViewScene.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/Action.h"
#include "platform/ui/Application.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/CutView.h"
#include "platform/ui/LanguageSwitch.h"
#include "platform/ui/MellViewSlider.h"
#include "platform/ui/Settings.h"
#include "platform/ui/ThemeSwitch.h"
#include "platform/view/MeshGLView.h"
#include "tests/support/Places.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLibrary>
#include <QScreen>
#include <QTabBar>
#include <QTemporaryDir>
#include <QWindow>

#include <cstdio>
#include <functional>
#include <memory>

namespace {

void waitWhile(std::function<bool()> const& condition)
{
    while (condition())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

class Pictures
{
public:
    explicit Pictures(QString folder) : m_folder(std::move(folder))
    {
        m_application.newDocument({});
        ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::English);
        m_window = std::make_unique<OrbeWindow>();
        QLibrary library(QString::fromStdString(builtPath("libMellTriangleCut.so")));
        reinterpret_cast<void (*)()>(library.resolve("initDLLModule"))();
        m_window->commandsAdded();
        m_window->setGeometry(0, 0, 1280, 800);
        m_window->show();
        waitWhile([&] { return !m_window->windowHandle()->isExposed(); });
    }

    bool draw()
    {
        open("vase.stl");
        select(0);
        bool areWritten = save("window");
        openCut();
        areWritten = save("cut-view") && areWritten;
        closeCut();
        select(0);
        cut();
        areWritten = save("pieces") && areWritten;
        trigger("Std_Undo", 3);
        Base::MellViewSlider::instance()->setHeight(45);
        showPage(0);
        open("bracket.3mf");
        select(0);
        ThemeSwitch::setTheme(ThemeSwitch::Choice::Dark);
        LanguageSwitch::setLanguage(LanguageSwitch::Choice::German);
        fit();
        return save("window-dark") && areWritten;
    }

private:
    Mesh::GLView& view() const { return m_window->view(); }
    Mesh::Document& document() const
    {
        return static_cast<Mesh::Document&>(*m_application.activeDocument());
    }
    std::vector<Mesh::DocumentObject*> parts() const { return document().getMeshObjects(); }

    void open(char const* example)
    {
        m_window->files().openFiles(
            {QString::fromStdString(sourcePath(std::string("examples/") + example))});
        waitWhile([&] { return m_window->files().isWorking(); });
        fit();
    }
    void fit()
    {
        view().OnViewType(6);
        view().fitAll();
        rest();
    }
    void select(std::size_t part)
    {
        trigger("Std_SelectNone");
        parts().at(part)->setSelected(true, true, true);
    }
    void trigger(char const* name, int times = 1)
    {
        for (; times > 0; --times) {
            m_application.commandManager()
                .getCommandByName(name)
                ->getAction()
                ->getQAction()
                ->trigger();
            waitWhile([] { return JobGuard::instance()->isBusy(); });
        }
    }
    /// Of those beside the view: information, placement, cut view.
    void showPage(int index)
    {
        for (QTabBar* const bar : m_window->findChildren<QTabBar*>())
            if (bar->count() == 3)
                bar->setCurrentIndex(index);
    }

    void openCut()
    {
        trigger("Std_SelectNone");
        showPage(2);
        auto* const page = m_window->findChild<CutView*>();
        page->setActive(true);
        page->setAxis(CutView::AlongX);
        page->setPosition(0);
    }
    void closeCut() { m_window->findChild<CutView*>()->setActive(false); }
    /// The upper piece stands beside the lower one.
    void cut()
    {
        trigger("Std_zCut");
        select(0);
        showPage(1);
        PartPlacement::move(document(), {parts().at(0)}, {60, 60, 0});
        trigger("Std_DropToPlate");
        Base::MellViewSlider::instance()->setHeight(30);
        fit();
    }

    /// Until hints are over and the exact picture is there.
    void rest()
    {
        QElapsedTimer timer;
        timer.start();
        waitWhile([&] {
            return timer.elapsed() < 1000 || view().scene().isPreparing() ||
                   view().scene().isDrawingInSteps();
        });
    }
    bool save(char const* name)
    {
        rest();
        QString const file = m_folder + '/' + name + ".png";
        bool const isWritten =
            m_window->screen()->grabWindow(m_window->winId()).toImage().save(file);
        if (!isWritten)
            std::fprintf(stderr, "%s cannot be written.\n", qPrintable(file));
        return isWritten;
    }

    QString m_folder;
    Application m_application;
    std::unique_ptr<OrbeWindow> m_window;
};

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: draw_window FOLDER\n", stderr);
        return 2;
    }
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication const qt(argc, argv);
    QTemporaryDir const settings;
    QSettings::setPath(g_AppSettingFormat, QSettings::UserScope, settings.path());
    QCoreApplication::setApplicationName("draw_window");
    return Pictures(QString::fromLocal8Bit(argv[1])).draw() ? 0 : 1;
}
