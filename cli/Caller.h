// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/Report.h"
#include "cli/SourceFiles.h"
#include "platform/jobs/ProgressSink.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

struct CommonOptions;

/// Where parts of a command come from: a file, or what its caller holds in memory.
struct PartSource
{
    /// What to call it to a person.
    std::string name;
    /// Reads all parts, in order, behind a progress display. Throws Formats::FileError;
    /// Mell::AbortException if the user cancels.
    std::function<std::vector<SourcePart>()> read;
    /// The name is that of a file.
    bool isFile = false;
};

/// Whom a sub-command works for: it gives the parts, hears what there is to say, and takes the pieces.
/// Whoever it is, the same parts and options make the same pieces.
class Caller
{
public:
    virtual ~Caller() = default;

    /// In the order of the command line. Throws Formats::FileError.
    virtual std::vector<PartSource> sources(CommonOptions const& options) = 0;
    /// Shows progress and knows whether the user wants to stop.
    virtual std::shared_ptr<Base::ProgressSink> progressSink(bool isQuiet) = 0;
    /// Whether pieces are written to the folder of the options; otherwise takePieces() is all.
    virtual bool wantsFiles() const = 0;
    /// Whether a report is wanted, even if no file is named for it.
    virtual bool wantsReport() const = 0;

    /// Says what is no failure: a remark, or what a repair did.
    virtual void tell(std::string const& text) = 0;
    /// Says why something failed.
    virtual void complain(std::string const& text) = 0;
    /// What has become of the parts, once all of it is done. Pieces without a name of a file are in memory
    /// alone, those without a mesh in their file alone.
    virtual void takePieces(std::vector<CutPart> const& parts) = 0;
    virtual void takeReport(Report const& report) = 0;
};
