// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/corpus/Trial.h"

#include <algorithm>

namespace corpus {
namespace {

namespace fs = std::filesystem;

/// In the order of their names, in which the pieces are numbered.
std::vector<Soup> piecesIn(fs::path const& folder)
{
    std::vector<fs::path> paths;
    if (fs::exists(folder))
        for (fs::directory_entry const& entry : fs::directory_iterator(folder))
            paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<Soup> pieces;
    for (fs::path const& path : paths)
        pieces.push_back(readStl(path));
    return pieces;
}

std::string trimmed(std::string text)
{
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text.size() > 400 ? text.substr(0, 400) + " ..." : text;
}

void judgeFailure(Outcome const& outcome, bool leftFiles, Trial& trial)
{
    trial.text = trimmed(outcome.errors);
    if (outcome.end == Outcome::End::Timeout) {
        trial.result = Result::Timeout;
    } else if (outcome.end == Outcome::End::Signal) {
        trial.result = Result::Crash;
        trial.text = "signal " + std::to_string(outcome.status) + " " + trial.text;
    } else if (trial.text.find("subcommand") != std::string::npos) {
        trial.result = Result::Unknown;
    } else if (trial.text.find("bad_alloc") != std::string::npos ||
               trial.text.find("emory") != std::string::npos) {
        trial.result = Result::OutOfMemory;
    } else {
        bool const isSentence = trial.text.find(' ') != std::string::npos;
        trial.result = isSentence && !leftFiles ? Result::Refused : Result::Wrong;
        if (leftFiles)
            trial.text = "left files behind: " + trial.text;
    }
}

Result worstOf(judge::PieceFaults const& faults)
{
    return !faults.wrong.empty()    ? Result::Wrong
           : !faults.open.empty()   ? Result::Open
           : !faults.flawed.empty() ? Result::Flawed
                                    : Result::Ok;
}

/// Where the rule has two pieces and one has been written, it may be either.
judge::PieceFaults faultsOfWritten(judge::Source const& source, std::vector<Soup> const& pieces,
                                   judge::Rule const& rule, std::size_t samples)
{
    judge::PieceFaults faults = judge::faultsOf(source, pieces, rule, samples);
    if (pieces.size() != 1 || faults.wrong.empty())
        return faults;
    judge::PieceFaults other = judge::faultsOf(source, {Soup{}, pieces[0]}, rule, samples);
    return other.wrong.empty() ? other : faults;
}

/// What is wrong with pieces of which a repair should have left nothing.
std::string flawsOf(std::vector<Soup> const& pieces)
{
    std::string text;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        judge::SurfaceEdges const edges = judge::edgesOf(pieces[i]);
        std::size_t const crossings = judge::crossingsOf(pieces[i]).total();
        if (!edges.isClosed() || edges.flatTriangles + crossings > 0)
            text += "piece " + std::to_string(i + 1) + ": " +
                    std::to_string(edges.borders + edges.disagreeing) + " borders, " +
                    std::to_string(edges.crowdedPaired + edges.crowdedUnpaired) +
                    " edges of more, " + std::to_string(crossings) + " crossings; ";
    }
    return text;
}

void judgeMending(std::vector<Soup> const& pieces, std::string const& told, Trial& trial)
{
    std::string const flaws = flawsOf(pieces);
    if (flaws.empty() || trial.result != Result::Ok)
        return;
    bool const isTold =
        told.find(" left: ") != std::string::npos || told.find("not closed") != std::string::npos;
    trial.result = isTold ? Result::Left : Result::Flawed;
    trial.text = flaws + trimmed(told);
}

}  // namespace

char const* nameOf(Result result)
{
    static constexpr char const* names[] = {"ok",   "refused", "left",          "unknown", "flawed",
                                            "open", "wrong",   "out of memory", "timeout", "crash"};
    return names[int(result)];
}

bool isFailure(Result result)
{
    return result > Result::Unknown;
}

Trial tryOut(Operation const& operation, judge::Source const& source, std::string const& program,
             fs::path const& folder, Limits const& limits, std::size_t samples)
{
    Job const job = operation.job(source, "part.stl");
    fs::path const out = folder / "out";
    fs::remove_all(out);
    for (auto const& [name, soup] : job.tools)
        writeStl(folder / name, soup);
    std::vector<std::string> arguments = job.arguments;
    // Whether a piece is closed is judged here, not by the program.
    for (char const* const argument : {"-o", "out", "--format", "stl", "--quiet", "--allow-open"})
        arguments.emplace_back(argument);

    Trial trial;
    for (std::string const& argument : arguments)
        trial.command +=
            (trial.command.empty() ? "" : " ") +
            (argument.find(';') == std::string::npos ? argument : "'" + argument + "'");
    Outcome const outcome = runLimited(program, arguments, folder, limits);
    trial.seconds = outcome.seconds;
    trial.peakMegabytes = outcome.peakMegabytes;
    if (outcome.end != Outcome::End::Exit || outcome.status != 0) {
        judgeFailure(outcome, fs::exists(out) && !fs::is_empty(out), trial);
        return trial;
    }
    std::vector<Soup> const pieces = piecesIn(out);
    judge::PieceFaults const faults = faultsOfWritten(source, pieces, job.rule, samples);
    trial.result = worstOf(faults);
    trial.text = faults.wrong + faults.open + faults.flawed;
    if (job.mends)
        judgeMending(pieces, outcome.errors, trial);
    return trial;
}

}  // namespace corpus
