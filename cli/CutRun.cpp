// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutRun.h"

#include "cli/CutReport.h"
#include "cli/DocumentParts.h"
#include "cli/Errors.h"
#include "cli/ExitStatus.h"
#include "cli/NamePattern.h"
#include "cli/OtherFileError.h"
#include "cli/PieceMending.h"
#include "cli/SavePieces.h"
#include "cli/StandardStreams.h"
#include "cli/streaming/StreamJob.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/Exceptions.h"
#include "platform/ui/Application.h"

#include <algorithm>

namespace {

void failIfUncut(CutPart const& part)
{
    for (CutRemark const& remark : part.remarks)
        if (remark.kind == CutRemark::Kind::NothingCut)
            throw CutError(remark.text);
}

void nameByPattern(CutPart& part, NamePattern const& pattern)
{
    for (std::size_t i = 0; i < part.pieces.size(); ++i) {
        CutPiece& piece = part.pieces[i];
        piece.name = pattern.nameOf(
            {std::filesystem::path(part.source).stem().string(), part.name, piece.name, i + 1});
    }
}

/// A part that fell into one piece has no other to be told apart from.
void nameBySide(CutPart& part, std::vector<std::string> const& names)
{
    if (part.pieces.size() != 2)
        return;
    for (CutPiece& piece : part.pieces)
        piece.name = part.name + '_' + names[piece.side];
}

void namePieces(CutPart& part, std::vector<std::string> const& names)
{
    if (names.size() == 1)
        nameByPattern(part, NamePattern(names[0]));
    else if (!names.empty())
        nameBySide(part, names);
}

}  // namespace

CutRun::CutRun(std::string const& command, CutOptions const& options, Caller& caller)
    : m_options(options),
      m_caller(caller),
      m_report(command, options.common, caller),
      m_document(*Application::Instance->newDocument("freecut"))
{
    applyCommonOptions(options.common, caller);
    options.checkNames();
    if (goesToStandardOutput() && options.common.report == standardStream)
        throw UsageError("Standard output takes the piece or the report, but not both.");
    if (!isDry() && !goesToStandardOutput() && caller.wantsFiles())
        m_files.emplace(options.pieces.folder, options.pieces.overwrite());
}

void CutRun::remark(CutRemark::Kind kind, std::string text)
{
    m_caller.tell(text);
    reportHead()["remarks"].push_back(remarkReport({nullptr, kind, std::move(text), {}}));
}

int CutRun::perform(std::function<void()> const& cut)
{
    try {
        m_report.time("load", [this] { readParts(); });
        m_report.time("cut", cut);
        if (!isDry())
            m_report.time("save", [this] { savePieces(); });
    } catch (Stopped const&) {
        // The part that failed has said why.
    } catch (Mell::AbortException const&) {
        // Whoever cancels wants all to be as it was, a former report too.
        throw;
    } catch (...) {
        m_failure = failureInFlight();
        m_caller.complain(m_failure->message);
    }
    finish();
    return status();
}

void CutRun::cutEach(std::function<void(CutPart&)> const& job)
{
    for (CutPart& part : m_parts)
        cut(part, [&] { job(part); });
}

void CutRun::cut(CutPart& part, std::function<void()> const& job)
{
    if (!part.isThere())
        return;
    bool const isDone = attempt(part, [&] {
        cutOrMendFirst(part, m_options.repair, job);
        if (m_options.failIfUncut)
            failIfUncut(part);
        if (!part.isStreamed)
            mendPieces(part, m_options.repair);
        namePieces(part, m_options.names);
        for (CutPiece& piece : part.pieces)
            if (piece.kernel)
                piece.facts = measureMesh(*piece.kernel);
    });
    if (isDone)
        for (CutRemark const& remark : part.remarks)
            m_caller.tell(part.label + ": " + remark.text);
    if (!isDone)
        stopUnlessGoingOn();
}

void CutRun::readParts()
{
    for (PartSource const& source : m_caller.sources(m_options.common))
        read(source);
}

void CutRun::read(PartSource const& from)
{
    if (m_options.stream && !from.isFile)
        throw UsageError("--stream cuts files while they are read, but a part is in memory.");
    if (m_options.stream)
        return append(partToStream(from.name));
    CutPart unread;
    unread.source = from.name;
    std::vector<SourcePart> sources;
    if (!attempt(unread, [&] { sources = from.read(); })) {
        append(std::move(unread));
        return stopUnlessGoingOn();
    }
    bool const isOnly = sources.size() == 1;
    for (SourcePart& source : sources) {
        std::string const name = source.name;
        CutPart part = addPart(m_document, std::move(source), wantsReport());
        part.isOnlyOfFile = isOnly;
        if (!isOnly)
            part.label += " (" + name + ")";
        append(std::move(part));
    }
}

void CutRun::append(CutPart part)
{
    part.place = m_parts.size();
    m_parts.push_back(std::move(part));
}

bool CutRun::attempt(CutPart& part, std::function<void()> const& work)
{
    try {
        work();
        return true;
    } catch (Mell::AbortException const&) {
        throw;
    } catch (OtherFileError const& e) {
        part.failure = failureInFlight();
        part.pieces.clear();
        m_caller.complain(e.label() + ": " + part.failure->message);
        return false;
    } catch (...) {
        part.failure = failureInFlight();
        part.pieces.clear();
        // What cannot be read is named by its message.
        m_caller.complain(part.isThere() ? part.label + ": " + part.failure->message
                                         : part.failure->message);
        return false;
    }
}

void CutRun::stopUnlessGoingOn() const
{
    if (!m_options.keepGoing)
        throw Stopped();
}

bool CutRun::goesToStandardOutput() const
{
    return m_options.pieces.folder == standardStream;
}

void CutRun::savePieces()
{
    if (goesToStandardOutput())
        return writeToStandardOutput(m_parts, m_options.pieces);
    if (m_options.keepOriginal)
        appendOriginals(m_parts, m_options.pieces, m_files ? &*m_files : nullptr);
    if (m_files)
        writePieces(m_parts, m_options.pieces, *m_files);
}

void CutRun::finish()
{
    if (!isKept())
        for (CutPart& part : m_parts)
            part.pieces.clear();
    try {
        m_report.write(partsReport(m_parts), status(), m_failure);
    } catch (...) {
        m_failure = failureInFlight();
        m_caller.complain(m_failure->message);
    }
    if (!isKept())
        return;
    if (m_files)
        m_files->keep();
    if (m_options.common.wantsTable() && !isDry() && !goesToStandardOutput())
        printTable(m_parts);
    for (CutPart const& part : m_parts) {
        tellOfRepairs(part, m_caller);
        complainOfOpenPieces(part, m_options.pieces.allowOpen, m_caller);
    }
    m_caller.takePieces(m_parts);
}

bool CutRun::isKept() const
{
    auto const hasFailed = [](CutPart const& part) { return part.failure.has_value(); };
    return !m_failure &&
           (m_options.keepGoing || std::none_of(m_parts.begin(), m_parts.end(), hasFailed));
}

int CutRun::status() const
{
    if (m_failure)
        return m_failure->status;
    bool hasOpenPiece = false;
    for (CutPart const& part : m_parts) {
        if (part.failure)
            return part.failure->status;
        for (CutPiece const& piece : part.pieces)
            hasOpenPiece |= !piece.facts.closed;
    }
    return hasOpenPiece && !m_options.pieces.allowOpen ? EXIT_PIECE_OPEN : EXIT_DONE;
}
