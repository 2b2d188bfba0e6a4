// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/OutputFile.h"

#include <string>

namespace CLI {
class App;
}

/// Where pieces go and in which format; the same for everything that cuts.
struct PieceOptions
{
    std::string folder = ".";
    /// Name of the pieces' format; empty for that of the source.
    std::string format;
    bool force = false;
    /// A piece that is not closed is no failure.
    bool allowOpen = false;

    void addTo(CLI::App& command);
    /// All but what is said of pieces that are not closed.
    void addFilesTo(CLI::App& command);

    Formats::Overwrite overwrite() const
    {
        return force ? Formats::Overwrite::Allow : Formats::Overwrite::Refuse;
    }
};
