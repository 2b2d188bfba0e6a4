// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutRun.h"

#include "cli/DocumentParts.h"
#include "cli/SavePieces.h"
#include "cli/SourceFiles.h"
#include "host/jobs/Threads.h"
#include "platform/document/MeshDocument.h"
#include "platform/ui/Application.h"

CutRun::CutRun(CommonOptions const& common, PieceOptions const& pieces, bool isDry)
    : m_common(common), m_pieces(pieces), m_document(*Application::Instance->newDocument("freecut"))
{
    checkReportTarget(common.report, common.files);
    if (!isDry)
        m_files.emplace(pieces.folder, pieces.overwrite());
    Stopwatch stage;
    std::vector<SourcePart> sources = readSources(common.files);
    m_seconds.load = stage.restart();
    m_parts = addParts(m_document, sources, wantsReport());
}

void CutRun::cutAndSave(bool keepOriginal, std::function<void()> const& job)
{
    if (isDry())
        return;
    Stopwatch stage;
    job();
    if (keepOriginal)
        appendOriginals(m_parts, m_pieces, *m_files);
    m_seconds.cut = stage.restart();
    savePieces(m_parts, m_pieces, *m_files);
    m_seconds.save = stage.restart();
}

void CutRun::finish(Report head)
{
    if (wantsReport())
        writeReport(m_common.report, cutReport(std::move(head), m_parts, m_seconds, m_total,
                                               Threads::threadCount()));
    if (m_files)
        m_files->keep();
}
