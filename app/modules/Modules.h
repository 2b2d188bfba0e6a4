// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/AppModule.h"

#include <QStringList>

#include <memory>
#include <string>
#include <vector>

/// The modules that the application has loaded. A module that cannot be loaded is a message, not a
/// failure: the application works without its commands. See docs/decisions/0021-packages-and-modules.md.
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

    /// Loads the modules of others: every library libNAME.so of a folder, in the order of their
    /// names, each with the module class NAME. One that cannot be loaded is a message.
    void loadOthers(QString const& folder);

    /// The library of the cutting commands that was installed with the program: in the program's
    /// folder, or where an installation has its modules.
    static QString installedLibrary();
    /// Where the modules of others lie: in the folder "modules" beside the cutting commands.
    static QString folderOfOthers();

    /// For the user, each of them whole sentences.
    QStringList const& messages() const { return m_messages; }
    /// The names of the commands that the modules of others have brought.
    std::vector<std::string> const& commandsOfOthers() const { return m_commandsOfOthers; }

private:
    std::vector<std::unique_ptr<AppModule>> m_modules;
    QStringList m_messages;
    std::vector<std::string> m_commandsOfOthers;
};
