// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <nlohmann/json.hpp>

#include <QProcess>
#include <QTemporaryDir>

#include <string>
#include <vector>

// Compiled in one file instead of all.
extern template class nlohmann::basic_json<nlohmann::ordered_map>;

/// A folder of its own, and freecut run in it.
class FreecutFolder
{
public:
    /// Writes a part as binary STL and returns its name.
    std::string addStl(Soup const& soup, std::string const& name);
    void addFile(std::string const& name, std::string const& content);
    std::string read(std::string const& name) const;
    /// Everything in the folder, hidden files too, sorted.
    std::vector<std::string> files(std::string const& folder = ".") const;
    /// The mesh of a file that holds one part.
    Soup mesh(std::string const& name) const;

    struct Result
    {
        int status;
        std::string output;
        std::string errors;

        nlohmann::ordered_json json() const;
    };
    Result run(std::vector<std::string> const& arguments) const;

    /// Sets a process up to run freecut in the folder.
    void prepare(QProcess& process, std::vector<std::string> const& arguments) const;
    std::string path(std::string const& name) const;

private:
    QTemporaryDir m_folder;
};

/// Waits until a process of that id catches Ctrl-C; false if it has ended before.
bool waitUntilInterruptible(QProcess& process);

/// Sends a signal to a process, unless it has ended.
void sendSignal(QProcess const& process, int signalNumber);
