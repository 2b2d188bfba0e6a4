// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/JobStore.h"

#include "cli/Errors.h"
#include "host/formats/FileError.h"
#include "host/formats/OutputFile.h"

#include <cerrno>
#include <fstream>
#include <set>
#include <signal.h>
#include <sstream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

void makeFolder(fs::path const& folder)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        throw Formats::FileError(
            folder, "this folder cannot be made: " + QString::fromStdString(error.message()) + '.');
}

std::string machine()
{
    char name[256] = {};
    gethostname(name, sizeof name - 1);
    return name;
}

/// Of a work folder's name, KEY.MACHINE.PROCESS.NUMBER: whether nobody works in it any more.
bool isOfADeadProcess(std::string const& name)
{
    std::string const begin = '.' + machine() + '.';
    std::size_t const place = name.find(begin);
    if (place == name.npos)
        return false;
    pid_t const process = std::atoi(name.c_str() + place + begin.size());
    return process != getpid() && kill(process, 0) != 0 && errno == ESRCH;
}

bool hasAllPieces(JobResult const& result)
{
    if (!result.fields.contains("report"))
        return true;
    std::error_code error;
    for (Report const& part : result.fields["report"].value("parts", Report::array()))
        for (Report const& piece : part.value("pieces", Report::array()))
            if (std::string const file = piece.value("file", ""); !file.empty())
                if (!fs::is_regular_file(file, error))
                    return false;
    return true;
}

/// Of the name "3-of-16.jsonl"; none if it is named otherwise.
std::optional<Shard> shardNamed(std::string const& name)
{
    std::size_t number = 0, count = 0;
    int length = 0;
    if (std::sscanf(name.c_str(), "%zu-of-%zu.jsonl%n", &number, &count, &length) != 2 ||
        std::size_t(length) != name.size())
        return {};
    return Shard{number, count};
}

std::string missingOf(std::set<std::size_t> const& present, std::size_t count)
{
    std::string missing;
    for (std::size_t number = 1; number <= count; ++number)
        if (!present.contains(number))
            missing += (missing.empty() ? "" : ", ") + std::to_string(number) + '/' +
                       std::to_string(count);
    return missing;
}

}  // namespace

JobStore::JobStore(fs::path folder) : m_folder(std::move(folder))
{
    if (m_folder.empty())
        m_folder = m_scratch.emplace().path();
    makeFolder(m_folder);
    removeLeftovers();
}

fs::path JobStore::fileOf(std::string const& key) const
{
    // A folder of a million files is slow on many disks.
    return m_folder / "results" / key.substr(0, 2) / (key + ".json");
}

std::optional<JobResult> JobStore::find(std::string const& key) const
{
    std::ifstream file(fileOf(key));
    if (!file)
        return {};
    JobResult result{Report::parse(file, nullptr, false)};
    if (!result.fields.is_object() || !result.fields.contains("status") || !hasAllPieces(result))
        return {};
    return result;
}

void JobStore::keep(std::string const& key, JobResult const& result)
{
    fs::path const path = fileOf(key);
    makeFolder(path.parent_path());
    Formats::OutputFile file(path, Formats::Overwrite::Allow);
    file.write(result.fields.dump(-1, ' ', false, Report::error_handler_t::replace) + '\n');
    file.commit();
}

void JobStore::removeLeftovers()
{
    std::error_code error;
    for (fs::directory_entry const& entry : fs::directory_iterator(m_folder / "work", error))
        if (isOfADeadProcess(entry.path().filename()))
            fs::remove_all(entry.path(), error);
}

fs::path JobStore::makeWorkFolder(std::string const& key)
{
    fs::path const own =
        m_folder / "work" /
        (key + '.' + machine() + '.' + std::to_string(getpid()) + '.' + std::to_string(m_serial++));
    makeFolder(own);
    return own;
}

void JobStore::keepLines(Shard const& shard, std::vector<std::string> const& lines)
{
    fs::path const folder = m_folder / "shards";
    makeFolder(folder);
    Formats::OutputFile file(
        folder / (std::to_string(shard.number) + "-of-" + std::to_string(shard.count) + ".jsonl"),
        Formats::Overwrite::Allow);
    for (std::string const& line : lines)
        file.write(line + '\n');
    file.commit();
}

std::vector<Report> JobStore::allLines() const
{
    std::set<std::size_t> present;
    std::size_t count = 0;
    std::vector<Report> lines;
    std::error_code error;
    for (fs::directory_entry const& entry : fs::directory_iterator(m_folder / "shards", error)) {
        auto const shard = shardNamed(entry.path().filename());
        if (!shard)
            continue;
        if (count != 0 && shard->count != count)
            throw UsageError("There are results of " + std::to_string(count) + " and of " +
                             std::to_string(shard->count) + " parts in " +
                             entry.path().parent_path().string() +
                             "; remove those that do not count any more.");
        count = shard->count;
        present.insert(shard->number);
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);)
            lines.push_back(Report::parse(line));
    }
    if (count == 0)
        throw UsageError("There are no results in " + m_folder.string() + " yet.");
    if (present.size() < count)
        throw UsageError("Results are missing; run freecut batch with --shard " +
                         missingOf(present, count) + " first.");
    return lines;
}
