// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutReport.h"

#include "cli/Caller.h"
#include "cli/Numbers.h"

#include <algorithm>
#include <cstdio>

namespace {

Report pointsReport(std::vector<UPoint3<float>> const& points)
{
    Report report = Report::array();
    for (UPoint3<float> const& p : points)
        report.push_back({tidy(p.X()), tidy(p.Y()), tidy(p.Z())});
    return report;
}

Report repairItems(std::vector<Repair::Report::Item> const& items)
{
    Report report = Report::array();
    for (Repair::Report::Item const& item : items) {
        Report& entry = report.emplace_back();
        entry["kind"] = Repair::keyOf(item.flaw);
        entry["count"] = item.count;
        entry["places"] = pointsReport(item.places);
        if (!item.reason.empty())
            entry["reason"] = item.reason;
    }
    return report;
}

void appendRepair(Report& report, std::optional<Repair::Report> const& repair)
{
    if (repair && !repair->isEmpty())
        report["repair"] = {{"mended", repairItems(repair->mended)},
                            {"left", repairItems(repair->left)}};
}

Report pieceReport(CutPiece const& piece)
{
    Report report;
    report["name"] = piece.name;
    report["file"] = piece.file.string();
    if (piece.streamed)
        appendStreamedFacts(report, piece.facts);
    else
        appendFacts(report, piece.facts);
    appendRepair(report, piece.repair);
    return report;
}

char const* nameOf(ChosenConnector::State state)
{
    switch (state) {
        case ChosenConnector::State::Stands:
            return "stands";
        case ChosenConnector::State::LeftOut:
            return "leftOut";
        case ChosenConnector::State::GivesWay:
            return "givesWay";
    }
    return "";
}

Report connectorsReport(std::vector<ChosenConnector> const& connectors)
{
    Report report = Report::array();
    for (ChosenConnector const& connector : connectors) {
        UPoint3<float> const& p = connector.position;
        report.push_back({{"number", report.size() + 1},
                          {"position", {tidy(p.X()), tidy(p.Y()), tidy(p.Z())}},
                          {"added", connector.isAdded},
                          {"state", nameOf(connector.state)},
                          {"leavesPart", connector.leavesPart}});
    }
    return report;
}

void appendSection(Report& report, SectionFacts const& section)
{
    report["section"] = {{"area", section.area}, {"contours", section.contours}};
    if (section.positions)
        report["positions"] = pointsReport(*section.positions);
    if (!section.connectors.empty())
        report["connectors"] = connectorsReport(section.connectors);
}

char const* nameOf(CutRemark::Kind kind)
{
    switch (kind) {
        case CutRemark::Kind::NothingCut:
            return "nothingCut";
        case CutRemark::Kind::GapTakesPiece:
            return "gapTakesPiece";
        case CutRemark::Kind::NoRoomForConnectors:
            return "noRoomForConnectors";
        case CutRemark::Kind::ConnectorLeavesPart:
            return "connectorLeavesPart";
        case CutRemark::Kind::FacesNeverMeet:
            return "facesNeverMeet";
        case CutRemark::Kind::PieceFallsApart:
            return "pieceFallsApart";
        case CutRemark::Kind::RequestChanged:
            return "requestChanged";
        case CutRemark::Kind::PartPutInOrder:
            return "partPutInOrder";
        case CutRemark::Kind::PieceCrossesItself:
            return "pieceCrossesItself";
    }
    return "";
}

}  // namespace

Report remarkReport(CutRemark const& remark)
{
    Report report = {{"kind", nameOf(remark.kind)}, {"text", remark.text}};
    if (!remark.places.empty())
        report["places"] = pointsReport(remark.places);
    return report;
}

namespace {

Report partReport(CutPart const& part)
{
    Report report;
    report["source"] = part.source;
    if (part.failure)
        report["error"] = part.failure->message;
    for (CutRemark const& remark : part.remarks)
        report["remarks"].push_back(remarkReport(remark));
    if (part.isStreamed)
        report["streamed"] = true;
    if (part.isThere()) {
        report["triangles"] = part.triangles;
        report["volume"] = volumeReport(part.facts);
        report["closed"] = part.facts.closed;
    }
    appendRepair(report, part.repair);
    if (part.section)
        appendSection(report, *part.section);
    report["pieces"] = Report::array();
    for (CutPiece const& piece : part.pieces)
        report["pieces"].push_back(pieceReport(piece));
    return report;
}

/// A piece that is in memory alone has no file.
std::string labelOf(CutPiece const& piece)
{
    return piece.file.empty() ? piece.name : piece.file.string();
}

std::string boxText(UBox3<float> const& box)
{
    auto const corner = [](UPoint3<float> const& p) {
        return decimal(p.X()) + " " + decimal(p.Y()) + " " + decimal(p.Z());
    };
    return corner(box.min) + " .. " + corner(box.max) + " mm";
}

std::string padded(std::string text, std::size_t width)
{
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

}  // namespace

Report partsReport(std::vector<CutPart> const& parts)
{
    Report report = Report::array();
    for (CutPart const& part : parts)
        report.push_back(partReport(part));
    return report;
}

void printTable(std::vector<CutPart> const& parts)
{
    std::size_t width = 0;
    for (CutPart const& part : parts)
        for (CutPiece const& piece : part.pieces)
            width = std::max(width, piece.file.string().size());
    for (CutPart const& part : parts) {
        if (!part.isThere())
            continue;
        std::printf("%s: %s triangles\n", part.label.c_str(), grouped(part.triangles).c_str());
        for (CutPiece const& piece : part.pieces) {
            std::printf("  %s  %10s triangles  %s\n", padded(piece.file.string(), width).c_str(),
                        grouped(piece.facts.triangles).c_str(), boxText(piece.facts.box).c_str());
        }
    }
}

void complainOfOpenPieces(CutPart const& part, bool isAllowed, Caller& caller)
{
    for (CutPiece const& piece : part.pieces) {
        if (piece.facts.closed)
            continue;
        std::string const text = labelOf(piece) + ": The piece is not closed" +
                                 (piece.streamed ? "" : ": " + openPlacesOf(piece.facts));
        if (isAllowed)
            caller.tell(text + '.');
        else
            caller.complain(text + ". Repair the part, or accept it with --allow-open.");
    }
}

void tellOfRepairs(CutPart const& part, Caller& caller)
{
    auto const tell = [&](std::string const& name, std::optional<Repair::Report> const& repair) {
        std::string text;
        for (std::string const& line :
             repair ? Repair::linesOf(*repair) : std::vector<std::string>())
            text += ' ' + line;
        if (!text.empty())
            caller.tell(name + ':' + text);
    };
    tell(part.label, part.repair);
    for (CutPiece const& piece : part.pieces)
        tell(labelOf(piece), piece.repair);
}
