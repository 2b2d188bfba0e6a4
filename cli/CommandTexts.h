// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

/// What the help says, as data: completions and manual are made from it.
struct OptionText
{
    /// With their dashes, as "-o" or "--height".
    std::vector<std::string> names;
    /// What stands behind it, as "DIR" or "X,Y,Z"; empty for a switch.
    std::string value;
    /// What the value can be; empty if that is no list.
    std::vector<std::string> choices;
    /// It can be given several times, and each counts.
    bool repeats = false;
    std::string help;

    bool takesFolder() const { return value == "DIR"; }
    bool takesFile() const { return value.starts_with("FILE"); }
};

/// Options that belong together.
struct OptionGroupText
{
    /// Empty for the first group of a command.
    std::string title;
    std::string help;
    std::vector<OptionText> options;
};

struct CommandText
{
    /// Empty for the program itself.
    std::string name;
    std::string help;
    /// What stands on the command line without dashes, as "FILE"; empty for nothing.
    std::string operand;
    std::string operandHelp;
    std::vector<std::string> operandChoices;
    std::vector<OptionGroupText> groups;
    std::string footer;

    /// Of all groups.
    std::vector<OptionText> options() const;
};

/// The program first, then its sub-commands in the order of the help.
std::vector<CommandText> textsOf(CLI::App const& program);
