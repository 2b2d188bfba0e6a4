// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/NearestCommand.h"

#include <CLI/CLI.hpp>

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

}  // namespace

bool isUnknownCommand(CLI::App const& commandLine, std::string const& word)
{
    std::vector<std::string> const names = namesOf(commandLine);
    return !word.starts_with('-') && std::find(names.begin(), names.end(), word) == names.end();
}

std::string unknownCommand(CLI::App const& commandLine, std::string const& word)
{
    std::vector<std::string> const names = namesOf(commandLine);
    auto const nearest = std::min_element(names.begin(), names.end(), [&](auto& a, auto& b) {
        return distanceOf(word, a) < distanceOf(word, b);
    });
    std::string text = "\"" + word + "\" is no command.";
    // Beyond half of its letters it is another word.
    if (distanceOf(word, *nearest) <= (word.size() + 1) / 2)
        return text + " Did you mean \"" + *nearest + "\"?";
    text += " There are ";
    for (std::string const& name : names)
        text += name + (name == names.back() ? "." : ", ");
    return text + " See freecut --help.";
}
