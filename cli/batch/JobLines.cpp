// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/JobLines.h"

#include "cli/Errors.h"
#include "cli/SourceList.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace {

/// These work on no parts.
constexpr std::array commandsWithoutParts{"batch", "completion", "manual"};
/// What the batch itself says to each job.
constexpr std::array optionsOfBatch{"--json", "--quiet", "--help", "--recursive", "--keep-going"};
/// What they name is written.
constexpr std::array optionsThatWrite{"--json", "--svg", "--output"};

template <typename Names>
bool isAmong(Names const& names, std::string const& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string withHyphens(std::string const& name)
{
    return (name.size() == 1 ? "-" : "--") + name;
}

std::optional<OptionText> optionNamed(CommandText const& command, std::string const& name)
{
    for (OptionText& option : command.options())
        if (isAmong(option.names, name))
            return std::move(option);
    return {};
}

std::string textOf(Report const& value)
{
    if (value.is_string())
        return value.get<std::string>();
    if (value.is_number())
        return value.dump();
    if (!value.is_array())
        throw UsageError("what stands behind an option is a text, a number, true, or a list.");
    std::string text;
    for (Report const& each : value)
        text += (text.empty() ? "" : ",") + textOf(each);
    return text;
}

std::vector<std::string> filesOf(Report const& value)
{
    std::vector<std::string> files;
    if (value.is_string())
        files.push_back(value.get<std::string>());
    else if (value.is_array())
        for (Report const& each : value)
            files.push_back(textOf(each));
    if (files.empty() || isAmong(files, ""))
        throw UsageError("\"files\" takes the name of a file, or a list of names.");
    return files;
}

/// The words of a command line, in which quotes and backslashes keep blanks.
std::vector<std::string> wordsOf(std::string const& commandLine)
{
    std::vector<std::string> words;
    std::string word;
    bool isWord = false;
    char quote = 0;
    for (std::size_t i = 0; i < commandLine.size(); ++i) {
        char const c = commandLine[i];
        if (quote ? c == quote : c == '\'' || c == '"') {
            quote = quote ? 0 : c;
            isWord = true;
        } else if (c == '\\' && quote != '\'' && i + 1 < commandLine.size()) {
            word += commandLine[++i];
            isWord = true;
        } else if (!quote && (c == ' ' || c == '\t' || c == '\n')) {
            if (isWord)
                words.push_back(std::exchange(word, {}));
            isWord = false;
        } else {
            word += c;
            isWord = true;
        }
    }
    if (quote)
        throw UsageError("--make takes a command line, but a quote in it has no end.");
    if (isWord)
        words.push_back(word);
    return words;
}

/// One for each file, unless the command combines files.
std::vector<BatchJob> oneForEachFile(BatchJob const& all)
{
    if (all.command == "boolean")
        return {all};
    std::vector<BatchJob> jobs;
    for (std::string const& file : all.files) {
        jobs.push_back(all);
        jobs.back().files = {file};
    }
    return jobs;
}

}  // namespace

std::vector<BatchJob> JobLines::read(std::string const& text, std::string const& name) const
{
    std::vector<BatchJob> jobs;
    std::istringstream lines(text);
    std::size_t number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (line.find_first_not_of(" \t\r") == line.npos)
            continue;
        auto const wrong = [&](std::string const& what) {
            return UsageError("Line " + std::to_string(number) + " of " + name + ": " + what);
        };
        try {
            jobs.push_back(jobOf(Report::parse(line)));
            jobs.back().line = number;
        } catch (Report::parse_error const&) {
            throw wrong(
                "it is no JSON object such as {\"command\": \"zcut\", \"files\": "
                "[\"a.stl\"], \"height\": 40}.");
        } catch (UsageError const& e) {
            throw wrong(e.what());
        }
    }
    return jobs;
}

std::vector<BatchJob> JobLines::make(std::string const& commandLine) const
{
    std::vector<std::string> const words = wordsOf(commandLine);
    if (words.empty())
        throw UsageError("--make takes a command line such as \"zcut models/*.stl --height 40\".");
    BatchJob all;
    CommandText const& command = commandNamed(words.front());
    all.command = command.name;
    std::vector<std::string> files;
    bool isRecursive = false, areOptionsOver = false;
    for (std::size_t i = 1; i < words.size(); ++i) {
        std::string const& word = words[i];
        if (areOptionsOver || word.size() < 2 || word[0] != '-') {
            files.push_back(word);
        } else if (word == "--") {
            areOptionsOver = true;
        } else if (word == "--recursive") {
            isRecursive = true;
        } else {
            std::size_t const equals = word.find('=');
            std::string const name = word.substr(0, equals);
            auto const option = optionNamed(command, name);
            if (equals != word.npos)
                setOption(all, name, word.substr(equals + 1), true);
            else if (option && !option->value.empty() && i + 1 < words.size())
                setOption(all, name, words[++i], true);
            else
                setOption(all, name, {}, false);
        }
    }
    if (files.empty())
        throw UsageError(
            "--make takes a command line with files, such as \"zcut models/*.stl "
            "--height 40\".");
    all.files = sourceFiles(files, isRecursive);
    return oneForEachFile(all);
}

std::vector<std::string> JobLines::filesReadBy(BatchJob const& job) const
{
    std::vector<std::string> files = job.files;
    CommandText const& command = commandNamed(job.command);
    for (auto const& [name, value] : job.options)
        if (optionNamed(command, name)->takesFile() && !isAmong(optionsThatWrite, name))
            files.push_back(value);
    return files;
}

bool JobLines::writesPieces(BatchJob const& job) const
{
    return optionNamed(commandNamed(job.command), "--output").has_value();
}

CommandText const& JobLines::commandNamed(std::string const& name) const
{
    std::string names;
    for (CommandText const& command : m_texts) {
        if (command.name.empty() || isAmong(commandsWithoutParts, command.name))
            continue;
        if (command.name == name)
            return command;
        names += (names.empty() ? "" : ", ") + command.name;
    }
    throw UsageError("\"" + name + "\" is no command that a job can have; there are " + names +
                     ".");
}

BatchJob JobLines::jobOf(Report const& fields) const
{
    if (!fields.is_object() || !fields.contains("command") || !fields["command"].is_string() ||
        !fields.contains("files"))
        throw UsageError("a job is a JSON object with \"command\" and \"files\".");
    BatchJob job;
    job.command = commandNamed(fields["command"].get<std::string>()).name;
    job.files = filesOf(fields["files"]);
    for (auto const& [name, value] : fields.items()) {
        if (name == "command" || name == "files" || value == Report(false))
            continue;
        bool const isSwitch = value == Report(true);
        setOption(job, withHyphens(name), isSwitch ? std::string() : textOf(value), !isSwitch);
    }
    return job;
}

void JobLines::setOption(BatchJob& job, std::string const& name, std::string const& value,
                         bool hasValue) const
{
    if (isAmong(optionsOfBatch, name))
        throw UsageError("\"" + name + "\" is the batch's own; a job does without.");
    auto const option = optionNamed(commandNamed(job.command), name);
    if (!option)
        throw UsageError("\"" + name + "\" is no option of freecut " + job.command + ".");
    if (hasValue && option->value.empty())
        throw UsageError("\"" + name + "\" is a switch and takes no value.");
    if (!option->value.empty() && value.empty())
        throw UsageError("\"" + name + "\" takes a value: " + option->value + ".");
    // The longest name stands for the option, so that a job is the same by whichever it is asked for.
    job.options[*std::max_element(option->names.begin(), option->names.end(),
                                  [](auto& a, auto& b) { return a.size() < b.size(); })] = value;
}
