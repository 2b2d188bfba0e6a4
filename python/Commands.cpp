// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/Commands.h"

#include "cli/Caller.h"
#include "cli/CommandLine.h"
#include "cli/CommandTexts.h"
#include "cli/CommonOptions.h"
#include "cli/Errors.h"
#include "cli/Failure.h"
#include "cli/SourceList.h"
#include "cli/StandardStreams.h"
#include "cli/Terminal.h"
#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "host/jobs/Threads.h"
#include "platform/jobs/SequencerLauncher.h"
#include "platform/ui/Application.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace {

/// The part as a file would give it.
PartSource memorySource(StoredPart const& part, SourceScale const& scale)
{
    return {part.name, [part, scale] {
                auto kernel = std::make_unique<MeshKernel>(part.kernel.get());
                multiplyPoints(*kernel, scale.ofAll * scale.unit);
                std::vector<SourcePart> parts(1);
                parts[0] = {part.name, Formats::FormatRegistry::instance().byName("stl"), part.name,
                            std::move(kernel)};
                return parts;
            }};
}

/// What a command line says where files are asked for.
std::vector<std::string> namesOf(std::vector<Input> const& inputs)
{
    std::vector<std::string> names;
    for (Input const& input : inputs)
        if (auto const* const file = std::get_if<std::string>(&input))
            names.push_back(*file);
        else
            names.emplace_back("in-memory");
    return names;
}

void refuseStandardStreams(std::vector<std::string> const& words)
{
    for (std::string const& word : words)
        if (word == standardStream || word.ends_with("=-"))
            throw UsageError(
                "Standard input and output belong to Python; give the name of a file.");
}

/// The sink as what progress of this process goes to, without owning it.
std::shared_ptr<Base::ProgressSink> borrowed(Base::ProgressSink& sink)
{
    return {std::shared_ptr<void>(), &sink};
}

class SinkInPlace
{
public:
    explicit SinkInPlace(Base::ProgressSink& sink) { Base::setProgressSink(borrowed(sink)); }
    ~SinkInPlace() { Base::setProgressSink(nullptr); }
    SinkInPlace(SinkInPlace const&) = delete;
    SinkInPlace& operator=(SinkInPlace const&) = delete;
};

/// Who has the parts of a command in memory, and wants its pieces there.
class MemoryCaller : public Caller
{
public:
    /// sink  borrowed
    MemoryCaller(std::vector<Input> const& inputs, bool wantsFiles, Base::ProgressSink& sink)
        : m_inputs(inputs), m_wantsFiles(wantsFiles), m_sink(sink)
    {}

    CommandOutcome take() { return std::move(m_outcome); }

    std::vector<PartSource> sources(CommonOptions const& options) override;
    std::shared_ptr<Base::ProgressSink> progressSink(bool isQuiet) override;
    bool wantsFiles() const override { return m_wantsFiles; }
    bool wantsReport() const override { return true; }
    void tell(std::string const& text) override { m_outcome.remarks.push_back(text); }
    void complain(std::string const& text) override { m_outcome.complaints.push_back(text); }
    void takePieces(std::vector<CutPart> const& parts) override;
    void takeReport(Report const& report) override { m_outcome.report = report.dump(); }

private:
    std::vector<Input> const& m_inputs;
    bool m_wantsFiles;
    Base::ProgressSink& m_sink;
    CommandOutcome m_outcome;
};

std::vector<PartSource> MemoryCaller::sources(CommonOptions const& options)
{
    std::vector<PartSource> sources;
    for (Input const& input : m_inputs) {
        if (auto const* const part = std::get_if<StoredPart>(&input)) {
            sources.push_back(memorySource(*part, options.scale()));
            continue;
        }
        for (std::string const& file :
             sourceFiles({std::get<std::string>(input)}, options.isRecursive))
            sources.push_back(fileSource(file, options.scale()));
    }
    return sources;
}

std::shared_ptr<Base::ProgressSink> MemoryCaller::progressSink(bool)
{
    return borrowed(m_sink);
}

void MemoryCaller::takePieces(std::vector<CutPart> const& parts)
{
    for (CutPart const& part : parts) {
        auto& pieces = m_outcome.pieces.emplace_back();
        for (CutPiece const& piece : part.pieces)
            pieces.push_back({piece.name, piece.kernel, piece.file.string()});
    }
}

}  // namespace

CommandOutcome runCommand(std::vector<std::string> const& words, std::vector<Input> const& inputs,
                          bool wantsFiles, Base::ProgressSink& sink)
{
    SinkInPlace const plugged(sink);
    MemoryCaller caller(inputs, wantsFiles, sink);
    Action action;
    CLI::App commandLine;
    addCommands(commandLine, action);
    std::vector<std::string> all = words;
    all.emplace_back("--quiet");
    all.emplace_back("--");
    for (std::string& name : namesOf(inputs))
        all.push_back(std::move(name));
    int const status = runFor(caller, [&](Caller& self) {
        refuseStandardStreams(all);
        try {
            // It takes the last one first.
            commandLine.parse(std::vector<std::string>(all.rbegin(), all.rend()));
        } catch (CLI::ParseError const& e) {
            throw UsageError(e.what());
        }
        Threads::setThreadCount(0);
        Application const host;
        return action(self);
    });
    CommandOutcome outcome = caller.take();
    outcome.status = status;
    return outcome;
}

std::string writeFile(StoredPart const& part, std::string const& file, std::string const& format,
                      bool force, Base::ProgressSink& sink)
{
    SinkInPlace const plugged(sink);
    try {
        Formats::FormatRegistry const& registry = Formats::FormatRegistry::instance();
        Formats::MeshFormat const* const chosen = registry.byName(format);
        Base::SequencerLauncher display(("Writing " + file).c_str(), 100, true);
        display.setCancelEnabled(true);
        Formats::writePart(
            file, part.name, *part.kernel, chosen ? *chosen : registry.forNewFile(file),
            [&](int percent) { display.setProgress(std::uint64_t(percent)); },
            force ? Formats::Overwrite::Allow : Formats::Overwrite::Refuse);
        return {};
    } catch (...) {
        return failureInFlight().message;
    }
}

std::string describeCommands()
{
    CLI::App commandLine;
    Action action;
    addCommands(commandLine, action);
    Report commands = Report::object();
    for (CommandText const& command : textsOf(commandLine)) {
        if (command.name.empty())
            continue;
        Report& described = commands[command.name];
        described["help"] = command.help;
        described["options"] = Report::array();
        for (OptionText const& option : command.options())
            described["options"].push_back({{"name", option.names.back()},
                                            {"value", option.value},
                                            {"repeats", option.repeats},
                                            {"choices", option.choices},
                                            {"help", option.help}});
    }
    return commands.dump();
}
