// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandTexts.h"
#include "cli/ExitStatus.h"
#include "cli/SubCommands.h"

#include <CLI/App.hpp>

#include <cstdio>
#include <memory>

namespace {

using Texts = std::vector<CommandText>;

std::string joined(std::vector<std::string> const& words)
{
    std::string text;
    for (std::string const& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

std::vector<std::string> commandNames(Texts const& texts)
{
    std::vector<std::string> names;
    for (CommandText const& command : texts)
        if (!command.name.empty())
            names.push_back(command.name);
    return names;
}

/// With each character of a set behind a backslash.
std::string escaped(std::string const& text, std::string const& special)
{
    std::string safe;
    for (char const c : text) {
        if (special.find(c) != special.npos)
            safe += '\\';
        safe += c;
    }
    return safe;
}

/// In single quotes of a shell in which only the quote itself ends them.
std::string quoted(std::string const& text)
{
    std::string safe = "'";
    for (char const c : text)
        safe += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return safe + '\'';
}

/// The values of an option, as lines of a bash "case" of the option before the cursor.
std::string bashValues(CommandText const& command)
{
    std::string text;
    for (OptionText const& option : command.options()) {
        if (option.value.empty())
            continue;
        std::string names;
        for (std::string const& name : option.names)
            names += (names.empty() ? "" : "|") + command.name + ':' + name;
        std::string reply;
        if (!option.choices.empty())
            reply = "COMPREPLY=($(compgen -W '" + joined(option.choices) + "' -- \"$cur\"))";
        else if (option.takesFolder())
            reply = "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- \"$cur\")";
        else if (option.takesFile())
            reply = "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- \"$cur\")";
        else
            reply = ":";
        text += "        " + names + ") " + reply + "; return ;;\n";
    }
    return text;
}

std::string bashCompletion(Texts const& texts)
{
    std::string values, words;
    for (CommandText const& command : texts) {
        values += bashValues(command);
        std::vector<std::string> names;
        for (OptionText const& option : command.options())
            names.insert(names.end(), option.names.begin(), option.names.end());
        if (command.name.empty()) {
            std::vector<std::string> const commands = commandNames(texts);
            names.insert(names.begin(), commands.begin(), commands.end());
        }
        words += "        " + quoted(command.name) + ") words=" + quoted(joined(names)) +
                 "; operands=" + quoted(joined(command.operandChoices)) + " ;;\n";
    }
    return "# Completes freecut in bash. Put it into "
           "~/.local/share/bash-completion/completions/freecut.\n"
           "_freecut() {\n"
           "    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]} command= "
           "words= operands= i\n"
           "    for ((i = 1; i < COMP_CWORD; ++i)); do\n"
           "        [[ ${COMP_WORDS[i]} == -* ]] || { command=${COMP_WORDS[i]}; break; }\n"
           "    done\n"
           "    COMPREPLY=()\n"
           "    case $command:$prev in\n" +
           values +
           "    esac\n"
           "    case $command in\n" +
           words +
           "    esac\n"
           "    if [[ -z $command || $cur == -* ]]; then\n"
           "        COMPREPLY=($(compgen -W \"$words\" -- \"$cur\"))\n"
           "    elif [[ -n $operands ]]; then\n"
           "        COMPREPLY=($(compgen -W \"$operands\" -- \"$cur\"))\n"
           "    else\n"
           "        compopt -o filenames\n"
           "        mapfile -t COMPREPLY < <(compgen -f -- \"$cur\")\n"
           "    fi\n"
           "}\n"
           "complete -F _freecut freecut\n";
}

std::string zshValue(OptionText const& option)
{
    if (option.value.empty())
        return "";
    std::string const label = ':' + escaped(option.value, "\\:[]");
    if (!option.choices.empty())
        return label + ":(" + joined(option.choices) + ')';
    return label + (option.takesFolder() ? ":_files -/" : option.takesFile() ? ":_files" : ": ");
}

std::string zshOperand(CommandText const& command)
{
    if (command.operand.empty())
        return "";
    if (!command.operandChoices.empty())
        return " \\\n        " +
               quoted("*:" + command.operand + ":(" + joined(command.operandChoices) + ')');
    return " \\\n        '*:file:_files'";
}

std::string zshCompletion(Texts const& texts)
{
    std::string names, cases;
    for (CommandText const& command : texts) {
        std::string arguments;
        for (OptionText const& option : command.options())
            for (std::string const& name : option.names)
                arguments +=
                    " \\\n        " + quoted("*" + name + '[' + escaped(option.help, "\\:[]") +
                                             ']' + zshValue(option));
        if (command.name.empty())
            continue;
        names += "    " + quoted(escaped(command.name, ":") + ':' + command.help) + '\n';
        cases += "    " + command.name + ")\n      _arguments" + arguments + zshOperand(command) +
                 " ;;\n";
    }
    return "#compdef freecut\n"
           "# Completes freecut in zsh. Put it as _freecut into a folder of $fpath.\n"
           "_freecut() {\n"
           "  local -a commands\n"
           "  commands=(\n" +
           names +
           "  )\n"
           "  if (( CURRENT == 2 )); then\n"
           "    _describe command commands\n"
           "    return\n"
           "  fi\n"
           "  local command=$words[2]\n"
           "  shift words\n"
           "  (( CURRENT-- ))\n"
           "  case $command in\n" +
           cases +
           "  esac\n"
           "}\n"
           "(( $+functions[compdef] )) && compdef _freecut freecut\n";
}

/// In single quotes of fish, in which a backslash is one.
std::string fishQuoted(std::string const& text)
{
    return '\'' + escaped(text, "\\'") + '\'';
}

std::string fishOption(OptionText const& option)
{
    std::string text;
    for (std::string const& name : option.names)
        text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    text += " -d " + fishQuoted(option.help);
    if (option.value.empty())
        return text;
    if (!option.choices.empty())
        return text + " -x -a " + fishQuoted(joined(option.choices));
    if (option.takesFolder())
        return text + " -x -a '(__fish_complete_directories)'";
    return text + (option.takesFile() ? " -r -F" : " -x");
}

std::string fishCompletion(Texts const& texts)
{
    std::string text =
        "# Completes freecut in fish. Put it into ~/.config/fish/completions/freecut.fish.\n"
        "complete -c freecut -n __fish_use_subcommand -f\n";
    for (CommandText const& command : texts) {
        bool const isProgram = command.name.empty();
        std::string const when = isProgram ? "__fish_use_subcommand"
                                           : "'__fish_seen_subcommand_from " + command.name + '\'';
        if (!isProgram)
            text += "complete -c freecut -n __fish_use_subcommand -a " + command.name + " -d " +
                    fishQuoted(command.help) + '\n';
        if (!command.operandChoices.empty())
            text += "complete -c freecut -n " + when + " -f -a " +
                    fishQuoted(joined(command.operandChoices)) + '\n';
        for (OptionText const& option : command.options())
            text += "complete -c freecut -n " + when + fishOption(option) + '\n';
    }
    return text;
}

}  // namespace

void addCompletion(CLI::App& commandLine, Action& action)
{
    CLI::App* const command = commandLine.add_subcommand(
        "completion",
        "Print what completes commands, options and files in a shell with the Tab key.");
    auto const shell = std::make_shared<std::string>();
    command->add_option("SHELL", *shell, "The shell")
        ->required()
        ->check(CLI::IsMember({"bash", "zsh", "fish"}))
        ->type_name("");
    command->footer(
        "Examples:\n"
        "  freecut completion bash > ~/.local/share/bash-completion/completions/freecut\n"
        "  freecut completion zsh > ~/.zfunc/_freecut\n"
        "  freecut completion fish > ~/.config/fish/completions/freecut.fish");
    command->callback([&commandLine, shell, &action] {
        action = [&commandLine, shell](Caller&) {
            Texts const texts = textsOf(commandLine);
            std::string const text = *shell == "bash"  ? bashCompletion(texts)
                                     : *shell == "zsh" ? zshCompletion(texts)
                                                       : fishCompletion(texts);
            std::fputs(text.c_str(), stdout);
            return EXIT_DONE;
        };
    });
}
