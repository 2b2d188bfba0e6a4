// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/AppModule.h"

#include <QStringList>

#include <memory>
#include <vector>

/// The modules that the application has loaded. A module that cannot be loaded is a message, not a
/// failure: the application works without its commands.
class Modules
{
public:
    Modules() = default;
    /// Finishes them; their libraries stay loaded.
    ~Modules();
    Modules(Modules const&) = delete;
    Modules& operator=(Modules const&) = delete;

    /// Loads a library and starts its module; the Application must exist.
    ///
    /// returns  false, with one message more, if that cannot be done
    bool load(QString const& library);

    /// The library of the cutting commands that was installed with the program: in the program's
    /// folder, or in the folder "lib" beside that.
    static QString installedLibrary();

    /// For the user, each of them whole sentences.
    QStringList const& messages() const { return m_messages; }

private:
    std::vector<std::unique_ptr<AppModule>> m_modules;
    QStringList m_messages;
};
