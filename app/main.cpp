// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/OrbeWindow.h"
#include "app/StartOptions.h"
#include "app/files/DocumentFiles.h"
#include "app/modules/Modules.h"
#include "app/window/EventGuard.h"
#include "platform/ui/Application.h"
#include "platform/ui/DisplayUnit.h"
#include "platform/ui/LanguageSwitch.h"
#include "platform/ui/ThemeSwitch.h"

#include <QDir>
#include <QIcon>
#include <QStandardPaths>
#include <QTimer>

#include <cstdio>
#include <filesystem>

namespace {

/// Qt ends the program with a core file when there is none.
bool hasDisplay()
{
    for (char const* const variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (qEnvironmentVariableIsSet(variable))
            return true;
    return false;
}

QStringList argumentsOf(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

/// Takes out of the arguments what Qt would take for an option of its own.
QStringList takeOwnArguments(int& argc, char** argv)
{
    QStringList own;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        QString const argument = QString::fromLocal8Bit(argv[i]);
        if (argument == "--plugin" && i + 1 < argc)
            own << argument << QString::fromLocal8Bit(argv[++i]);
        else if (argument == "--plugin" || argument.startsWith("--plugin="))
            own << argument;
        else
            argv[kept++] = argv[i];
    }
    argc = kept;
    argv[kept] = nullptr;
    return own;
}

bool answersWithoutWindow(StartOptions const& options)
{
    if (options.wantsHelp)
        std::fputs(qPrintable(StartOptions::help()), stdout);
    else if (options.wantsVersion)
        std::printf("orbe %s\n", qPrintable(StartOptions::version()));
    return options.wantsHelp || options.wantsVersion;
}

void prepareQt()
{
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    // Between whole numbers the view's edges fall between pixels; the size of the font, from which
    // the interface takes all others, makes up for the rest.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
    QCoreApplication::setApplicationName(QStringLiteral("orbe"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Orbe"));
    QCoreApplication::setApplicationVersion(StartOptions::version());
}

std::filesystem::path recoveryFolder()
{
    QString const data = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    return QDir(data).filePath(QStringLiteral("recovery")).toStdString();
}

int runWindow(StartOptions const& options, EventGuard const& guard)
{
    Base::setOpenGLPath(options.openGL);
    QGuiApplication::setDesktopFileName(QStringLiteral("orbe"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/icons/orbe.png")));
    Application application;
    application.newDocument({});
    LanguageSwitch::applyStored();
    ThemeSwitch::applyStored();
    DisplayUnit::instance().readStored();
    OrbeWindow window;
    Modules modules;
    modules.load(options.plugin.isEmpty() ? Modules::installedLibrary() : options.plugin);
    modules.loadOthers(Modules::folderOfOthers());
    window.commandsAdded(modules.commandsOfOthers());
    for (QString const& message : modules.messages())
        window.addNotice(message);
    QObject::connect(&guard, &EventGuard::failed, &window, &OrbeWindow::addNotice);
    window.show();
    // When there is a window to ask in.
    QTimer::singleShot(0, &window, [&] {
        window.keepUnsavedWork(recoveryFolder());
        window.files().openFiles(options.files);
    });
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv)
{
    if (answersWithoutWindow(StartOptions::parse(argumentsOf(argc, argv))))
        return 0;
    if (!hasDisplay()) {
        std::fputs(
            "orbe: There is no display to open a window on; set DISPLAY, or use the program "
            "freecut, which needs none.\n",
            stderr);
        return 1;
    }
    prepareQt();
    QStringList const own = takeOwnArguments(argc, argv);
    GuardedApplication const qt(argc, argv);
    StartOptions const options = StartOptions::parse(own + QApplication::arguments().mid(1));
    if (!options.error.isEmpty()) {
        std::fprintf(stderr, "orbe: %s\n", qPrintable(options.error));
        return 2;
    }
    return runWindow(options, qt.guard());
}
