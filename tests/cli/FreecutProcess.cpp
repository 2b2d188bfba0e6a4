// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/cli/FreecutProcess.h"

#include "host/formats/PartFiles.h"
#include "tests/support/ModelFile.h"
#include "tests/support/Places.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <signal.h>

template class nlohmann::basic_json<nlohmann::ordered_map>;

namespace fs = std::filesystem;

std::string FreecutFolder::path(std::string const& name) const
{
    return m_folder.filePath(QString::fromStdString(name)).toStdString();
}

std::string FreecutFolder::addStl(Soup const& soup, std::string const& name)
{
    writeStl(soup, path(name));
    return name;
}

void FreecutFolder::addFile(std::string const& name, std::string const& content)
{
    std::ofstream(path(name), std::ios::binary) << content;
}

std::string FreecutFolder::read(std::string const& name) const
{
    std::ifstream file(path(name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::vector<std::string> FreecutFolder::files(std::string const& folder) const
{
    std::vector<std::string> names;
    for (fs::directory_entry const& entry : fs::directory_iterator(path(folder)))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

Soup FreecutFolder::mesh(std::string const& name) const
{
    return soupOf(*Formats::readParts(path(name)).at(0).kernel);
}

void FreecutFolder::prepare(QProcess& process, std::vector<std::string> const& arguments) const
{
    QStringList list;
    for (std::string const& argument : arguments)
        list += QString::fromStdString(argument);
    process.setProgram(QString::fromStdString(builtPath("freecut")));
    process.setArguments(list);
    process.setWorkingDirectory(m_folder.path());
}

nlohmann::ordered_json FreecutFolder::Result::json() const
{
    return nlohmann::ordered_json::parse(output);
}

FreecutFolder::Result FreecutFolder::run(std::vector<std::string> const& arguments) const
{
    QProcess process;
    prepare(process, arguments);
    process.start();
    process.waitForFinished(-1);
    bool const isDone = process.exitStatus() == QProcess::NormalExit;
    return {isDone ? process.exitCode() : -1, process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

void sendSignal(QProcess const& process, int signalNumber)
{
    // Of one that has ended the number is 0, which means all processes of the test's own group.
    if (auto const id = pid_t(process.processId()); id > 0)
        kill(id, signalNumber);
}

bool waitUntilInterruptible(QProcess& process)
{
    process.waitForStarted(-1);
    fs::path const status = "/proc/" + std::to_string(process.processId()) + "/status";
    while (process.state() == QProcess::Running) {
        std::ifstream file(status);
        for (std::string line; std::getline(file, line);)
            if (line.starts_with("SigCgt:") &&
                (std::stoull(line.substr(7), nullptr, 16) >> (SIGINT - 1)) & 1)
                return true;
        process.waitForFinished(1);
    }
    return false;
}
