// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PieceOptions.h"

#include "host/formats/FormatRegistry.h"

#include <CLI/App.hpp>

#include <vector>

namespace {

std::vector<std::string> formatNames()
{
    std::vector<std::string> names;
    for (auto const& format : Formats::FormatRegistry::instance().formats())
        names.emplace_back(format->name());
    return names;
}

}  // namespace

void PieceOptions::addFilesTo(CLI::App& command)
{
    command
        .add_option("-o,--output", folder,
                    "The folder for the pieces, made if need be (default: \".\"); - for standard "
                    "output, which "
                    "takes one")
        ->type_name("DIR")
        ->check([](std::string const& text) {
            return text.empty() ? "takes a folder such as \".\"" : "";
        });
    command
        .add_option("--format", format, "The format of the pieces (default: that of the source)")
        ->transform(CLI::IsMember(formatNames(), CLI::ignore_case))
        ->type_name("NAME");
    command.add_flag("--force", force, "Replace files that exist");
}

void PieceOptions::addTo(CLI::App& command)
{
    addFilesTo(command);
    command.add_flag("--allow-open", allowOpen,
                     "Accept pieces that are not closed: they do not change the exit status");
}
