// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandTexts.h"
#include "cli/ExitStatus.h"
#include "cli/SubCommands.h"

#include <CLI/App.hpp>

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace {

/// Plain text for roff, whose requests begin lines and whose escapes begin with a backslash.
std::string roff(std::string const& text)
{
    std::string safe;
    for (char const c : text) {
        if ((c == '.' || c == '\'') && (safe.empty() || safe.back() == '\n'))
            safe += "\\&";
        safe += c == '\\' ? std::string("\\e") : c == '-' ? std::string("\\-") : std::string(1, c);
    }
    return safe;
}

std::string optionParagraph(OptionText const& option)
{
    std::string names;
    for (std::string const& name : option.names)
        names += (names.empty() ? "\\fB" : ", \\fB") + roff(name) + "\\fR";
    if (!option.value.empty())
        names += " \\fI" + roff(option.value) + "\\fR";
    std::string help = roff(option.help);
    if (!option.choices.empty()) {
        help += ". One of ";
        for (std::string const& choice : option.choices)
            help += (choice == option.choices.front() ? "" : ", ") + roff(choice);
    }
    return ".TP\n" + names + '\n' + help + ".\n";
}

std::string verbatim(std::string const& text)
{
    return text.empty() ? "" : ".PP\n.nf\n" + roff(text) + "\n.fi\n";
}

std::string commandSection(CommandText const& command)
{
    std::string text = ".SS " + command.name + "\n" + roff(command.help) + "\n";
    text += ".PP\n\\fBfreecut " + command.name + "\\fR [\\fIOPTIONS\\fR]";
    if (!command.operand.empty())
        text += " \\fI" + command.operand + "\\fR";
    text += "\n";
    if (!command.operandHelp.empty())
        text += ".TP\n\\fI" + command.operand + "\\fR\n" + roff(command.operandHelp) + ".\n";
    for (OptionGroupText const& group : command.groups) {
        if (!group.title.empty())
            text += ".PP\n\\fI" + roff(group.title) + "\\fR: " + roff(group.help) + ".\n";
        for (OptionText const& option : group.options)
            text += optionParagraph(option);
    }
    return text + verbatim(command.footer);
}

std::string manual(std::vector<CommandText> const& texts)
{
    CommandText const& program = texts.front();
    std::string text =
        ".TH FREECUT 1 \"\" \"freecut " FREECUT_VERSION
        "\" \"User Commands\"\n"
        ".SH NAME\nfreecut \\- cut triangle\\-mesh parts for 3D printing\n"
        ".SH SYNOPSIS\n\\fBfreecut\\fR \\fICOMMAND\\fR [\\fIOPTIONS\\fR] \\fIFILE\\fR...\n"
        ".SH DESCRIPTION\n" +
        roff(program.help) + "\n.SH OPTIONS\n";
    for (OptionText const& option : program.options())
        text += optionParagraph(option);
    text += ".SH COMMANDS\n";
    for (CommandText const& command : texts)
        if (!command.name.empty())
            text += commandSection(command);
    return text + ".SH EXAMPLES AND EXIT STATUS" + '\n' + verbatim(program.footer);
}

}  // namespace

void addManual(CLI::App& commandLine, Action& action)
{
    CLI::App* const command =
        commandLine.add_subcommand("manual", "Print the manual page, as the program man reads it.");
    command->footer(
        "Examples:\n"
        "  freecut manual > freecut.1 && man ./freecut.1");
    command->callback([&commandLine, &action] {
        action = [&commandLine](Caller&) {
            std::fputs(manual(textsOf(commandLine)).c_str(), stdout);
            return EXIT_DONE;
        };
    });
}
