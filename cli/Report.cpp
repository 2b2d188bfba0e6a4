// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Report.h"

#include "cli/Errors.h"
#include "cli/Numbers.h"
#include "host/formats/FileError.h"
#include "host/formats/FormatRegistry.h"
#include "host/formats/OutputFile.h"

#include <cctype>
#include <cstdio>
#include <filesystem>

namespace {

bool isNamedLikeAMesh(std::filesystem::path const& path)
{
    std::string extension = path.extension().string();
    for (char& c : extension)
        c = char(std::tolower(static_cast<unsigned char>(c)));
    for (auto const& format : Formats::FormatRegistry::instance().formats())
        for (std::string_view const own : format->extensions())
            if (extension == '.' + std::string(own))
                return true;
    return false;
}

}  // namespace

Report boxReport(UBox3<float> const& box)
{
    return {tidy(box.MinX()), tidy(box.MinY()), tidy(box.MinZ()),
            tidy(box.MaxX()), tidy(box.MaxY()), tidy(box.MaxZ())};
}

Report volumeReport(MeshFacts const& facts)
{
    return facts.closed ? Report(facts.volume) : Report();
}

void appendFacts(Report& object, MeshFacts const& facts)
{
    object["triangles"] = facts.triangles;
    object["vertices"] = facts.vertices;
    object["shells"] = facts.shells;
    object["volume"] = volumeReport(facts);
    object["area"] = facts.area;
    object["closed"] = facts.closed;
    object["borderEdges"] = facts.borderEdges;
    object["nonManifoldEdges"] = facts.nonManifoldEdges;
    object["inconsistentEdges"] = facts.inconsistentEdges;
    object["box"] = boxReport(facts.box);
}

void appendStreamedFacts(Report& object, MeshFacts const& facts)
{
    object["triangles"] = facts.triangles;
    object["volume"] = volumeReport(facts);
    object["area"] = facts.area;
    object["closed"] = facts.closed;
    object["box"] = boxReport(facts.box);
}

std::string openPlacesOf(MeshFacts const& facts)
{
    std::string text;
    auto const add = [&](std::size_t count, char const* one, char const* many) {
        if (count > 0)
            text += (text.empty() ? "" : ", ") + grouped(count) + (count == 1 ? one : many);
    };
    add(facts.borderEdges, " open edge", " open edges");
    add(facts.nonManifoldEdges, " edge with more than two triangles",
        " edges with more than two triangles");
    add(facts.inconsistentEdges, " edge between triangles that face different ways",
        " edges between triangles that face different ways");
    return text.empty() ? "it has no triangles" : text;
}

void checkReportTarget(std::string const& target, std::vector<std::string> const& sources)
{
    if (target.empty() || target == "-")
        return;
    std::filesystem::path const path = target;
    std::error_code error;
    for (std::string const& source : sources)
        if (std::filesystem::equivalent(path, source, error))
            throw UsageError(target + " would replace the part " + source +
                             "; give it another name.");
    if (isNamedLikeAMesh(path))
        throw UsageError(target +
                         " is named like a part and could replace a piece; give it another "
                         "extension, such as .json or .svg.");
    auto const folder = path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
    if (!std::filesystem::is_directory(folder, error))
        throw Formats::FileError(path, "its folder does not exist; make it first.");
}

void writeReport(std::string const& target, Report const& report)
{
    // Names come from files and need not be valid UTF-8.
    std::string const text = report.dump(2, ' ', false, Report::error_handler_t::replace) + "\n";
    if (target != "-") {
        Formats::OutputFile file(target, Formats::Overwrite::Allow);
        file.write(text);
        file.commit();
        return;
    }
    bool const isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (std::fflush(stdout) != 0 || !isWritten)
        throw Formats::FileError("standard output", "the report cannot be written to it.");
}
