// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CommonOptions.h"
#include "cli/CutReport.h"
#include "cli/PieceFiles.h"
#include "cli/PieceOptions.h"

#include <functional>
#include <optional>

namespace Mesh {
class Document;
}

/// One run of a command that cuts parts in a document of their own: from the files to the pieces
/// and the report.
class CutRun
{
public:
    /// Reads the parts.
    ///
    /// isDry   nothing is cut, and no pieces are written
    /// throws  UsageError if the report would go into a part's file; as readSources
    CutRun(CommonOptions const& common, PieceOptions const& pieces, bool isDry);

    Mesh::Document& document() { return m_document; }
    std::vector<CutPart>& parts() { return m_parts; }
    bool isDry() const { return !m_files; }
    bool wantsReport() const { return !m_common.report.empty(); }

    /// Runs the job, which gives the parts their pieces, and writes these; nothing in a dry run.
    ///
    /// keepOriginal  the parts follow their pieces
    void cutAndSave(bool keepOriginal, std::function<void()> const& job);

    /// Writes the report if one is wanted, and lets the files stay. Without it they go with the
    /// run.
    void finish(Report head);

private:
    CommonOptions const& m_common;
    PieceOptions const& m_pieces;
    Stopwatch m_total;
    CutSeconds m_seconds;
    std::optional<PieceFiles> m_files;
    Mesh::Document& m_document;
    std::vector<CutPart> m_parts;
};
