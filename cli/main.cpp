// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cancel.h"
#include "cli/CommandLine.h"
#include "cli/ExitStatus.h"
#include "cli/Failure.h"
#include "cli/NearestCommand.h"
#include "cli/Terminal.h"
#include "platform/ui/Application.h"

#include <CLI/CLI.hpp>

#include <QApplication>

#include <cstdio>
#include <memory>

namespace {

/// What is printed may be all that a command was called for.
int statusOfOutput(int status)
{
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return status;
    complain("Standard output cannot be written to.");
    return status == EXIT_DONE ? EXIT_FILE_FAILED : status;
}

/// What Qt has to say about the desktop is of no use here.
void passFailuresOn(QtMsgType type, QMessageLogContext const&, QString const& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "freecut: %s\n", text.toLocal8Bit().constData());
}

/// Views are never shown, so they need no display.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv, bool hasViews)
{
    if (!hasViews)
        return std::make_unique<QCoreApplication>(argc, argv);
    qInstallMessageHandler(passFailuresOn);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QApplication>(argc, argv);
}

}  // namespace

int main(int argc, char** argv)
{
    CLI::App commandLine("Cuts triangle-mesh parts for 3D printing. All numbers are millimetres.",
                         "freecut");
    commandLine.footer(
        "Examples:\n"
        "  freecut info bracket.stl\n"
        "  freecut zcut bracket.stl --height 12.5 -o pieces\n"
        "  freecut section bracket.stl --center 0,0,12.5 --normal 0,0,1 --pins\n"
        "  freecut polygon bracket.stl --view top --points \"0,0;20,0;20,15\" --clearance 0.1\n"
        "  freecut boolean bracket.stl hole.stl --subtract -o pieces\n"
        "  freecut repair scan.stl\n"
        "  freecut convert scan.off --format 3mf\n"
        "\n"
        "Exit status: 0 done, 1 the cut failed, 2 wrong usage, 3 a file cannot be read or "
        "written,\n4 the pieces are written but one of them is not closed. Cancelled: 130 by "
        "Ctrl-C, 143 by\na termination, 129 when the terminal has gone.");
    commandLine.set_version_flag("--version", [] {
        return std::string("freecut " FREECUT_VERSION "\nQt ") + qVersion() +
               ", " FREECUT_LIBRARIES;
    });
    Action action;
    addCommands(commandLine, action);
    try {
        commandLine.parse(argc, argv);
    } catch (CLI::ParseError const& e) {
        if (argc > 1 && isUnknownCommand(commandLine, argv[1])) {
            complain(unknownCommand(commandLine, argv[1]));
            return EXIT_WRONG_USAGE;
        }
        auto const wrong = unknownOption(commandLine, {argv + 1, argv + argc});
        if (wrong && e.get_exit_code() != 0) {
            complain(*wrong);
            return EXIT_WRONG_USAGE;
        }
        return commandLine.exit(e) == 0 ? EXIT_DONE : EXIT_WRONG_USAGE;
    }
    Cancel::listen();
    auto const application = makeApplication(argc, argv, isToolChosen(commandLine));
    QCoreApplication::setApplicationName("freecut");
    Application const host;
    Terminal terminal;
    return statusOfOutput(runFor(terminal, action));
}
