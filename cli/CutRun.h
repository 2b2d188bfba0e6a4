// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Caller.h"
#include "cli/CommandReport.h"
#include "cli/CutOptions.h"
#include "cli/CutPart.h"
#include "cli/PieceFiles.h"

#include <functional>
#include <optional>

namespace Mesh {
class Document;
}

/// One run of a command that cuts parts in a document of their own: from the files to the pieces,
/// what is said about them, and the report. Either all pieces are written or none; with
/// --keep-going those of all parts that did not fail.
class CutRun
{
public:
    /// throws  UsageError or Formats::FileError if report or pieces could not be written where they
    ///         shall go. Nothing has been read yet
    CutRun(std::string const& command, CutOptions const& options, Caller& caller);

    Mesh::Document& document() { return m_document; }
    bool isDry() const { return m_options.dryRun; }
    bool wantsReport() const { return m_report.isWanted(); }
    /// Says what is so of the whole run; the report tells it too.
    void remark(CutRemark::Kind kind, std::string text);
    /// The report's fields that are this command's own.
    Report& reportHead() { return m_report.head(); }

    /// Reads the parts, has them cut, writes their pieces, and tells about it all.
    ///
    /// returns  the exit status. What `cut` throws becomes a message
    /// throws   Mell::AbortException if the user has cancelled; there is no piece and no report
    /// then
    int perform(std::function<void()> const& cut);

    // Inside perform():
    /// Where pieces go; there are none of a dry run, and none for standard output.
    PieceFiles& files() { return *m_files; }
    /// One for each part, and one for each file that could not be read.
    std::vector<CutPart>& parts() { return m_parts; }
    /// Runs the job on each part, which gives it its pieces. A job that throws fails for its part
    /// alone.
    void cutEach(std::function<void(CutPart&)> const& job);
    /// The same for one part.
    void cut(CutPart& part, std::function<void()> const& job);

private:
    struct Stopped
    {
    };

    void readParts();
    void read(PartSource const& from);
    void append(CutPart part);
    /// Whether the work was done; otherwise the part bears the failure, and it has been said.
    bool attempt(CutPart& part, std::function<void()> const& work);
    void stopUnlessGoingOn() const;
    bool goesToStandardOutput() const;
    void savePieces();
    void finish();
    bool isKept() const;
    int status() const;

    CutOptions const& m_options;
    Caller& m_caller;
    CommandReport m_report;
    std::optional<PieceFiles> m_files;
    Mesh::Document& m_document;
    std::vector<CutPart> m_parts;
    /// Of the run as a whole.
    std::optional<Failure> m_failure;
};
