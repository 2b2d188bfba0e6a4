// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Caller.h"

/// A person, or a script, that has typed the command line: parts come from files, pieces go to files, and
/// what there is to say goes to standard error.
class Terminal : public Caller
{
public:
    std::vector<PartSource> sources(CommonOptions const& options) override;
    std::shared_ptr<Base::ProgressSink> progressSink(bool isQuiet) override;
    bool wantsFiles() const override { return true; }
    bool wantsReport() const override { return false; }
    void tell(std::string const& text) override;
    void complain(std::string const& text) override;
    void takePieces(std::vector<CutPart> const&) override {}
    void takeReport(Report const&) override {}
};

/// The file as a source of parts.
PartSource fileSource(std::string const& file, SourceScale const& scale);
