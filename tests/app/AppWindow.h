// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/OrbeWindow.h"
#include "app/files/DocumentFiles.h"
#include "app/jobs/JobGuard.h"
#include "platform/ui/Action.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"
#include "platform/ui/MellViewSlider.h"
#include "platform/ui/Settings.h"
#include "platform/view/MeshGLView.h"
#include "platform/view/OpenGLPath.h"
#include "tests/support/MeshBuilders.h"
#include "tests/support/Places.h"
#include "tests/support/TestDocument.h"
#include "tests/support/WaitUntil.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLibrary>
#include <QScreen>
#include <QTemporaryDir>
#include <QWindow>

#include <memory>

/// Answers that need nobody.
class ScriptedAnswers : public FileQuestions
{
public:
    /// What the tests look at and set.
    struct Script
    {
        Unsaved unsaved = Unsaved::Discard;
        int askedAboutUnsaved = 0;
        QStringList told;
    };

    explicit ScriptedAnswers(Script& script) : m_script(script) {}

    QStringList filesToOpen() override { return {}; }
    QString projectToSave(QString const&) override { return {}; }
    std::optional<ExportPlan> exportPlan(ExportOffer const&) override { return {}; }
    bool mayReplace(QStringList const&) override { return true; }
    Unsaved aboutUnsaved(QString const&) override
    {
        ++m_script.askedAboutUnsaved;
        return m_script.unsaved;
    }
    Changed aboutChanged(QString const&) override { return Changed::Cancel; }
    void tell(QString const& text) override { m_script.told << text; }

private:
    Script& m_script;
};

/// The application's window on one document, with the commands of the plug-in and settings of its
/// own.
class AppWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        QSettings::setPath(g_AppSettingFormat, QSettings::UserScope, settings.path());
        QCoreApplication::setApplicationName("orbe");
        start();
    }

    /// The application anew, with the settings that it left.
    void start()
    {
        window.reset();
        test.reset();
        test = std::make_unique<TestDocument>();
        window = std::make_unique<OrbeWindow>(std::make_unique<ScriptedAnswers>(script));
        enterPlugIn();
        window->commandsAdded();
    }

    void TearDown() override
    {
        if (JobGuard::instance()->isBusy())
            waitUntil([] { return !JobGuard::instance()->isBusy(); });
        window.reset();
        test.reset();
    }

    void show()
    {
        window->show();
        ASSERT_TRUE(waitUntil([&] { return window->windowHandle()->isExposed(); }));
        window->activateWindow();
        QCoreApplication::processEvents();
    }

    Base::CommandManager& commands() const { return test->application.commandManager(); }
    QAction* action(std::string const& name) const
    {
        Base::Command* const command = commands().getCommandByName(name);
        return command && command->getAction() ? command->getAction()->getQAction() : nullptr;
    }
    /// What the user does with a menu entry, right or not for the moment.
    void trigger(std::string const& name)
    {
        QCoreApplication::processEvents();
        QAction* const entry = action(name);
        ASSERT_TRUE(entry) << name;
        entry->trigger();
    }

    /// A part of a file that comes with the tests; null where the files are missing.
    Mesh::DocumentObject* addFile(std::string const& file)
    {
        Soup const soup = realMesh(file);
        return soup.triangles.empty() ? nullptr : test->add(soup, file.substr(0, file.find('.')));
    }

    /// A picture of the window with its view, in the build folder.
    void takePicture(std::string const& name)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 300)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        std::string const file = "window-" + name + (g_OPENGL_3_3 ? "-33.png" : "-21.png");
        window->screen()
            ->grabWindow(window->winId())
            .save(QString::fromStdString(picturePath(file)));
    }

    static bool hasDisplay() { return QGuiApplication::platformName() == "xcb"; }

    QTemporaryDir settings;
    ScriptedAnswers::Script script;
    std::unique_ptr<TestDocument> test;
    std::unique_ptr<OrbeWindow> window;

private:
    static void enterPlugIn()
    {
        // Each application of a test has commands of its own.
        QLibrary library(QString::fromStdString(builtPath("libMellTriangleCut.so")));
        using Entry = void (*)();
        auto const entry = reinterpret_cast<Entry>(library.resolve("initDLLModule"));
        ASSERT_TRUE(entry) << library.errorString().toStdString();
        entry();
    }
};
