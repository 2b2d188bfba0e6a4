// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/ModuleLoader.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/Exceptions.h"
#include "platform/ui/Application.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellViewSlider.h"
#include "platform/ui/Settings.h"
#include "platform/view/GLView.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Places.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include <memory>
#include <string>
#include <vector>

namespace {

class Bench : public AppModule
{
public:
    static Base::Type classTypeId;
    static void enter()
    {
        ++entered;
        initSubclass(classTypeId, "Bench", "AppModule", create);
    }
    static void* create() { return new Bench(); }

    Base::Type getTypeId() const override { return classTypeId; }
    std::string getClassName() const override { return "Bench"; }
    bool createModule() override { return ++created, !refuses; }
    bool finishModule() override { return true; }
    bool deleteModule(std::string) override { return true; }

    static inline int entered = 0;
    static inline int created = 0;
    static inline bool refuses = false;
};

Base::Type Bench::classTypeId;

struct CountingView : Base::GLView
{
    void redraw() override { ++redraws; }
    int redraws = 0;
};

std::string messageOf(auto const& action)
{
    try {
        action();
    } catch (Mell::Exception const& exception) {
        return exception.what();
    }
    return {};
}

}  // namespace

TEST(Application, IsFoundWhileItExists)
{
    EXPECT_EQ(Application::Instance, nullptr);
    {
        Application application;
        EXPECT_EQ(Application::Instance, &application);
        EXPECT_EQ(application.activeDocument(), nullptr);
        EXPECT_TRUE(application.commandManager().getAllCommands().empty());
    }
    EXPECT_EQ(Application::Instance, nullptr);
}

TEST(Application, OwnsDocumentsAndKnowsTheActiveOne)
{
    Application application;
    struct Listener : sigslot::has_slots<sigslot::single_threaded>
    {
        void changed() { ++changes; }
        int changes = 0;
    } listener;
    application.signalActiveDocument.connect(&listener, &Listener::changed);

    Mesh::Document* const first = application.newDocument("first");
    Mesh::Document* const second = application.newDocument("second");
    EXPECT_EQ(application.documents(), (std::vector<Base::Document*>{first, second}));
    EXPECT_EQ(application.activeDocument(), second);
    application.setActiveDocument(first);
    EXPECT_EQ(application.activeDocument(), first);
    EXPECT_EQ(listener.changes, 3);

    Mesh::Document foreign;
    application.setActiveDocument(&foreign);
    application.closeDocument(&foreign);
    EXPECT_EQ(application.activeDocument(), first);

    application.closeDocument(first);
    EXPECT_EQ(application.activeDocument(), second);
    application.setActiveDocument(nullptr);
    EXPECT_EQ(application.activeDocument(), nullptr);
    application.closeDocument(second);
    EXPECT_TRUE(application.documents().empty());
}

TEST(MainWindow, IsFoundWhileItExists)
{
    EXPECT_EQ(MainWindow::getInstance(), nullptr);
    {
        MainWindow window;
        EXPECT_EQ(MainWindow::getInstance(), &window);
    }
    EXPECT_EQ(MainWindow::getInstance(), nullptr);
}

TEST(MainWindow, TellsWhenAnotherViewComesInFront)
{
    MainWindow window;
    CountingView view;
    int changes = 0;
    QObject::connect(&window, &MainWindow::signalActiveGLViewChanged, [&] { ++changes; });
    window.updateActiveGLView();
    window.setActiveGLView(&view);
    window.setActiveGLView(&view);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(window.activeGLView(), &view);
    window.updateActiveGLView();
    EXPECT_EQ(view.redraws, 1);
}

TEST(MainWindow, TellsToolButtonsWhenTheToolOfTheViewInFrontChanges)
{
    MainWindow window;
    CountingView behind;
    auto front = std::make_unique<CountingView>();
    int updates = 0;
    QObject::connect(&window, &MainWindow::signalUpdateToolbuttonState, [&] { ++updates; });
    window.setActiveGLView(&behind);
    window.setActiveGLView(front.get());
    behind.startSelection("Mesh::PointPickerMesh");
    EXPECT_EQ(updates, 0);
    front->startSelection("Mesh::PointPickerMesh");
    EXPECT_EQ(updates, 1);
    front->stopSelection();
    front->stopSelection();
    EXPECT_EQ(updates, 2);
    front.reset();
    EXPECT_EQ(window.activeGLView(), nullptr);
}

TEST(ViewSlider, KeepsItsHeightWithoutAWindow)
{
    Base::MellViewSlider* const slider = MainWindow::getViewSlider();
    ASSERT_NE(slider, nullptr);
    EXPECT_EQ(MainWindow::getViewSlider(), slider);
    std::vector<float> heights;
    QObject context;
    QObject::connect(slider, &Base::MellViewSlider::heightChanged, &context,
                     [&](float height) { heights.push_back(height); });
    slider->setHeight(12.5f);
    slider->setHeight(12.5f);
    EXPECT_EQ(slider->getHeight(), 12.5f);
    slider->setHeight(0);
    EXPECT_EQ(heights, (std::vector<float>{12.5f, 0}));
}

TEST(ViewSlider, TakesItsRangeFromThePartsOfTheActiveDocument)
{
    Application application;
    Base::MellViewSlider slider;
    slider.refresh();
    EXPECT_EQ(slider.getMaximum(), 0);
    Mesh::Document* const document = application.newDocument("plate");
    for (float const z : {-3.f, 10.f}) {
        auto* const part = new Mesh::DocumentObject;
        part->meshProperty->setMesh(kernelOf(box(1, 1, 5)).release(), true);
        part->translate({0, 0, z}, 0);
        document->addObject(part, "part", true);
    }
    slider.setHeight(100);
    slider.refresh();
    EXPECT_EQ(slider.getMinimum(), -3);
    EXPECT_EQ(slider.getMaximum(), 15);
    EXPECT_EQ(slider.getHeight(), 100);
}

TEST(Settings, AreWrittenAndReadBackByName)
{
    QTemporaryDir directory;
    QSettings::setPath(g_AppSettingFormat, QSettings::UserScope, directory.path());
    auto const open = [] {
        return std::make_unique<QSettings>(g_AppSettingFormat, QSettings::UserScope,
                                           QCoreApplication::applicationName(), getSettingName());
    };
    open()->setValue("/SectionCut/useBoundary", true);
    EXPECT_TRUE(open()->value("/SectionCut/useBoundary").toBool());
    EXPECT_TRUE(open()->fileName().startsWith(directory.path()));
}

TEST(ModuleLoader, EntersAModuleOnceAndMakesIt)
{
    auto const first = startModule(&Bench::enter, "Bench");
    auto const second = startModule(&Bench::enter, "Bench");
    EXPECT_EQ(first->getClassName(), "Bench");
    EXPECT_EQ(Bench::entered, 1);
    EXPECT_EQ(Bench::created, 2);
    first->setName("bench");
    EXPECT_EQ(first->getName(), "bench");
    EXPECT_EQ(first->getDocument(), nullptr);
}

TEST(ModuleLoader, LoadsTheCuttingModuleWithItsCommands)
{
    Application application;
    auto const module = loadModule(QString::fromStdString(builtPath("libMellTriangleCut")));
    EXPECT_EQ(module->getClassName(), "OrbeFreecut");
    EXPECT_EQ(module->getTypeId(), Base::Type::fromName("OrbeFreecut"));
    EXPECT_NE(application.commandManager().getCommandByName("Std_zCut"), nullptr);
    std::size_t const commands = application.commandManager().getAllCommands().size();
    EXPECT_EQ(commands, 18u);
    loadModule(QString::fromStdString(builtPath("libMellTriangleCut")));
    EXPECT_EQ(application.commandManager().getAllCommands().size(), commands);
}

TEST(ModuleLoader, RefusalOfTheModuleIsSaid)
{
    Bench::refuses = true;
    EXPECT_EQ(messageOf([] { startModule(&Bench::enter, "Bench"); }),
              "The module \"Bench\" refuses to start in this application.");
    Bench::refuses = false;
}

TEST(ModuleLoader, LibraryWithoutTheModuleClassIsSaid)
{
    EXPECT_EQ(messageOf([] { startModule([] {}, "Nothing"); }),
              "The module enters no module class \"Nothing\"; it does not belong to this "
              "application.");
}

TEST(ModuleLoader, MissingLibraryIsNamed)
{
    std::string const message = messageOf([] { loadModule("/nowhere/libNothing"); });
    EXPECT_NE(message.find("The module \"/nowhere/libNothing\" cannot be loaded"),
              std::string::npos)
        << message;
}

TEST(ModuleLoader, LibraryWithoutAnEntryFunctionIsNamed)
{
    QString const host = QString::fromStdString(builtPath("libMellHost"));
    EXPECT_EQ(messageOf([&] { loadModule(host); }),
              std::string("\"") + host.toStdString() +
                  "\" is no module of this application: it has no initDLLModule.");
}
