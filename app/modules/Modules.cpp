// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/modules/Modules.h"

#include "host/ui/ModuleLoader.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

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

QString Modules::installedLibrary()
{
    QDir const folder(QCoreApplication::applicationDirPath());
    QString const beside = folder.filePath(libraryFile);
    QString const inLib = folder.filePath(QStringLiteral("../lib/") + libraryFile);
    return !QFileInfo::exists(beside) && QFileInfo::exists(inLib) ? QDir::cleanPath(inLib) : beside;
}
