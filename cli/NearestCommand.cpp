// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/NearestCommand.h"

#include <CLI/App.hpp>

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

std::vector<std::string> namesOf(CLI::App const& commandLine)
{
    std::vector<std::string> names;
    for (CLI::App const* const command : commandLine.get_subcommands({}))
        names.push_back(command->get_name());
    return names;
}

/// The least number of letters to put in, take out or replace that turns one word into the other
/// (Levenshtein, 1966).
std::size_t distanceOf(std::string const& a, std::string const& b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t(0));
    for (char const c : a) {
        std::size_t diagonal = row[0]++;
        for (std::size_t i = 1; i < row.size(); ++i) {
            std::size_t const replaced = diagonal + (b[i - 1] != c);
            diagonal = row[i];
            row[i] = std::min({row[i - 1] + 1, row[i] + 1, replaced});
        }
    }
    return row.back();
}

/// The nearest of the names; empty if none is near: beyond half of its letters it is another word.
std::string nearestOf(std::vector<std::string> const& names, std::string const& word)
{
    auto const nearest = std::min_element(names.begin(), names.end(), [&](auto& a, auto& b) {
        return distanceOf(word, a) < distanceOf(word, b);
    });
    bool const isNear =
        nearest != names.end() && distanceOf(word, *nearest) <= (word.size() + 1) / 2;
    return isNear ? *nearest : std::string();
}

/// Without the hyphens.
std::vector<std::string> longOptionsOf(CLI::App const& command)
{
    std::vector<std::string> names;
    for (CLI::Option const* const option : command.get_options())
        for (std::string const& name : option->get_lnames())
            names.push_back(name);
    // Options that go with each other are below, without a name of their own.
    for (CLI::App const* const group : command.get_subcommands({}))
        if (group->get_name().empty())
            for (std::string const& name : longOptionsOf(*group))
                names.push_back(name);
    return names;
}

}  // namespace

bool isUnknownCommand(CLI::App const& commandLine, std::string const& word)
{
    std::vector<std::string> const names = namesOf(commandLine);
    return !word.starts_with('-') && std::find(names.begin(), names.end(), word) == names.end();
}

std::string unknownCommand(CLI::App const& commandLine, std::string const& word)
{
    std::vector<std::string> const names = namesOf(commandLine);
    std::string text = "\"" + word + "\" is no command.";
    if (std::string const nearest = nearestOf(names, word); !nearest.empty())
        return text + " Did you mean \"" + nearest + "\"?";
    text += " There are ";
    for (std::string const& name : names)
        text += name + (name == names.back() ? "." : ", ");
    return text + " See freecut --help.";
}

std::optional<std::string> unknownOption(CLI::App const& commandLine,
                                         std::vector<std::string> const& words)
{
    CLI::App const* command = &commandLine;
    std::string called = "freecut";
    for (CLI::App const* const known : commandLine.get_subcommands({}))
        if (!words.empty() && words[0] == known->get_name()) {
            command = known;
            called += " " + known->get_name();
        }
    std::vector<std::string> const names = longOptionsOf(*command);
    for (std::string const& word : words) {
        // What follows is no option, whatever it begins with.
        if (word == "--")
            break;
        std::string const name = word.substr(0, word.find('='));
        if (!name.starts_with("--") ||
            std::find(names.begin(), names.end(), name.substr(2)) != names.end())
            continue;
        std::string const nearest = nearestOf(names, name.substr(2));
        return "\"" + name + "\" is no option of " + called + "." +
               (nearest.empty() ? " See " + called + " --help."
                                : " Did you mean \"--" + nearest + "\"?");
    }
    return {};
}
