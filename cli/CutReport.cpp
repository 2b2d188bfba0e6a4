// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutReport.h"

#include "cli/Numbers.h"

#include <algorithm>
#include <cstdio>

namespace {

Report pieceReport(CutPiece const& piece)
{
    Report report;
    report["name"] = piece.name;
    report["file"] = piece.file.string();
    appendFacts(report, measureMesh(*piece.kernel));
    return report;
}

void appendSection(Report& report, SectionFacts const& section)
{
    report["section"] = {{"area", section.area}, {"contours", section.contours}};
    if (!section.warning.empty())
        report["warning"] = section.warning;
    if (!section.positions)
        return;
    report["positions"] = Report::array();
    for (UPoint3<float> const& p : *section.positions)
        report["positions"].push_back({tidy(p.X()), tidy(p.Y()), tidy(p.Z())});
}

Report partReport(CutPart const& part)
{
    Report report;
    report["source"] = part.source;
    report["triangles"] = part.triangles;
    report["volume"] = part.facts.volume;
    report["closed"] = part.facts.closed;
    if (part.section)
        appendSection(report, *part.section);
    report["pieces"] = Report::array();
    for (CutPiece const& piece : part.pieces)
        report["pieces"].push_back(pieceReport(piece));
    return report;
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

Report cutReport(Report head, std::vector<CutPart> const& parts, CutSeconds const& seconds,
                 Stopwatch const& total, int threads)
{
    Report report = std::move(head);
    report["parts"] = Report::array();
    for (CutPart const& part : parts)
        report["parts"].push_back(partReport(part));
    report["seconds"] = {{"load", seconds.load},
                         {"cut", seconds.cut},
                         {"save", seconds.save},
                         {"total", total.seconds()}};
    report["threads"] = threads;
    return report;
}

void printTable(std::vector<CutPart> const& parts)
{
    std::size_t width = 0;
    for (CutPart const& part : parts)
        for (CutPiece const& piece : part.pieces)
            width = std::max(width, piece.file.string().size());
    for (CutPart const& part : parts) {
        std::printf("%s: %s triangles\n", part.source.c_str(), grouped(part.triangles).c_str());
        for (CutPiece const& piece : part.pieces) {
            std::printf("  %s  %10s triangles  %s\n", padded(piece.file.string(), width).c_str(),
                        grouped(piece.kernel->readMesh()->triangles.size()).c_str(),
                        boxText(piece.kernel->GetBox()).c_str());
        }
    }
}
