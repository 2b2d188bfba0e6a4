// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/ui/ModuleLoader.h"

#include "platform/document/q2s.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>
#include <QLibrary>

std::unique_ptr<AppModule> loadModule(QString const& path, char const* className)
{
    QLibrary library(path);
    if (!library.load())
        throw Mell::Exception(
            q2s(QCoreApplication::translate("Modules", "The module \"%1\" cannot be loaded: %2")
                    .arg(path, library.errorString())));
    auto* const initialise = library.resolve("initDLLModule");
    if (!initialise)
        throw Mell::Exception(
            q2s(QCoreApplication::translate(
                    "Modules", "\"%1\" is no module of this application: it has no initDLLModule.")
                    .arg(path)));
    return startModule(initialise, className);
}

std::unique_ptr<AppModule> startModule(void (*initialise)(), char const* className)
{
    if (Base::Type::fromName(className).isBad())
        initialise();
    std::unique_ptr<Base::BaseClass> made(Base::Type::createInstance(className));
    if (!dynamic_cast<AppModule*>(made.get()))
        throw Mell::Exception(q2s(
            QCoreApplication::translate(
                "Modules",
                "The module enters no module class \"%1\"; it does not belong to this application.")
                .arg(className)));
    std::unique_ptr<AppModule> module(static_cast<AppModule*>(made.release()));
    if (!module->createModule())
        throw Mell::Exception(
            q2s(QCoreApplication::translate(
                    "Modules", "The module \"%1\" refuses to start in this application.")
                    .arg(className)));
    return module;
}
