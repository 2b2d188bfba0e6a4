// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/modules/Modules.h"

#include "host/ui/ModuleLoader.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/Exceptions.h"
#include "platform/ui/Application.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <exception>

namespace {

char const* const libraryFile = "libMellTriangleCut.so";

}  // namespace

Modules::~Modules()
{
    for (auto const& module : m_modules)
        module->finishModule();
}

bool Modules::load(QString const& library)
{
    try {
        if (QFileInfo const file(library); !file.exists())
            throw Mell::Exception(
                QCoreApplication::translate("Modules", "There is no module \"%1\".")
                    .arg(library)
                    .toStdString());
        m_modules.push_back(loadModule(QFileInfo(library).absoluteFilePath()));
        return true;
    } catch (Mell::Exception const& exception) {
        Base::ConsoleSingleton::Instance().Log(exception.what());
        m_messages << QCoreApplication::translate(
                          "Modules",
                          "%1 The commands for cutting are missing; install the program again, or "
                          "name the module with --plugin.")
                          .arg(QString::fromUtf8(exception.what()));
    }
    return false;
}

void Modules::loadOthers(QString const& folder)
{
    auto const& manager = Application::Instance->commandManager();
    auto const refuse = [this](char const* reason) {
        Base::ConsoleSingleton::Instance().Log(reason);
        m_messages << QString::fromUtf8(reason);
    };
    std::size_t const known = manager.getAllCommands().size();
    for (QFileInfo const& file :
         QDir(folder).entryInfoList({QStringLiteral("lib*.so")}, QDir::Files, QDir::Name)) {
        try {
            // The name without "lib".
            std::string const className = file.completeBaseName().mid(3).toStdString();
            m_modules.push_back(loadModule(file.absoluteFilePath(), className.c_str()));
        } catch (Mell::Exception const& exception) {
            refuse(exception.what());
        } catch (std::exception const& exception) {
            refuse(exception.what());
        }
    }
    std::vector<Base::Command*> const commands = manager.getAllCommands();
    for (std::size_t i = known; i < commands.size(); ++i)
        m_commandsOfOthers.push_back(commands[i]->getName());
}

QString Modules::installedLibrary()
{
    QDir const folder(QCoreApplication::applicationDirPath());
    QString const beside = folder.filePath(libraryFile);
    QString const installed =
        folder.filePath(QStringLiteral(ORBE_INSTALLED_MODULES "/") + libraryFile);
    return !QFileInfo::exists(beside) && QFileInfo::exists(installed) ? QDir::cleanPath(installed)
                                                                      : beside;
}

QString Modules::folderOfOthers()
{
    return QFileInfo(installedLibrary()).dir().filePath(QStringLiteral("modules"));
}
