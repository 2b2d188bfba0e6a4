// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandTexts.h"

#include <CLI/App.hpp>

#include <sstream>

namespace {

/// What can be given, of a type such as "NAME:{stl,ply}".
std::vector<std::string> choicesIn(std::string const& type)
{
    std::vector<std::string> choices;
    std::size_t const begin = type.find(":{"), end = type.find('}');
    if (begin == type.npos || end == type.npos)
        return choices;
    std::istringstream list(type.substr(begin + 2, end - begin - 2));
    for (std::string choice; std::getline(list, choice, ',');)
        choices.push_back(choice);
    return choices;
}

OptionText textOf(CLI::Option const& option)
{
    OptionText text;
    for (std::string const& name : option.get_snames())
        text.names.push_back('-' + name);
    for (std::string const& name : option.get_lnames())
        text.names.push_back("--" + name);
    text.help = option.get_description();
    if (option.get_items_expected_max() == 0)
        return text;
    std::string const type = option.get_type_name();
    text.value = type.substr(0, type.find(':'));
    text.choices = choicesIn(type);
    text.repeats = option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll ||
                   (option.get_items_expected_max() > 1 && option.get_delimiter() == 0);
    return text;
}

OptionGroupText groupOf(CLI::App const& command)
{
    OptionGroupText group;
    group.help = command.get_description();
    // Groups have the help option of their command once more.
    CLI::Option const* const repeated =
        command.get_name().empty() ? command.get_help_ptr() : nullptr;
    for (CLI::Option const* const option : command.get_options())
        if (!option->get_positional() && option != repeated)
            group.options.push_back(textOf(*option));
    return group;
}

CommandText textOf(CLI::App const& command)
{
    CommandText text;
    text.name = command.get_parent() ? command.get_name() : "";
    text.help = command.get_description();
    text.footer = command.get_footer();
    for (CLI::Option const* const option : command.get_options())
        if (option->get_positional()) {
            text.operand = option->get_name();
            text.operandHelp = option->get_description();
            text.operandChoices = choicesIn(option->get_type_name());
        }
    text.groups.push_back(groupOf(command));
    text.groups.front().help.clear();
    for (CLI::App const* const group :
         command.get_subcommands([](CLI::App const* each) { return each->get_name().empty(); })) {
        text.groups.push_back(groupOf(*group));
        text.groups.back().title = group->get_group();
    }
    return text;
}

}  // namespace

std::vector<OptionText> CommandText::options() const
{
    std::vector<OptionText> all;
    for (OptionGroupText const& group : groups)
        all.insert(all.end(), group.options.begin(), group.options.end());
    return all;
}

std::vector<CommandText> textsOf(CLI::App const& program)
{
    std::vector<CommandText> texts{textOf(program)};
    for (CLI::App const* const command :
         program.get_subcommands([](CLI::App const* each) { return !each->get_name().empty(); }))
        texts.push_back(textOf(*command));
    return texts;
}
