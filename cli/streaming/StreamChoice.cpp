// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/streaming/StreamChoice.h"

#include "cli/Errors.h"
#include "cli/SourceList.h"
#include "cli/StandardStreams.h"
#include "cli/streaming/StreamJob.h"
#include "host/formats/FacetStream.h"
#include "host/formats/MeshFormat.h"

#include <algorithm>

namespace {

/// What needs parts in memory whatever the command.
void addCommon(CutOptions const& options, std::vector<std::string>& inMemory)
{
    if (!options.pieces.format.empty() && options.pieces.format != streamedFormat().name())
        inMemory.push_back("--format " + options.pieces.format);
    if (options.repair == RepairScope::All)
        inMemory.emplace_back("--repair all");
    if (options.pieces.folder == standardStream)
        inMemory.emplace_back("Standard output");
    if (options.keepOriginal)
        inMemory.emplace_back("--keep-original");
    if (options.dryRun)
        inMemory.emplace_back("--dry-run");
}

/// Whether one of the files would not fit into memory, and all of them can be cut while they are read.
bool areTooLarge(CutOptions const& options)
{
    try {
        auto const files = sourceFiles(options.common.files, options.common.isRecursive);
        auto const isStandardInput = [](auto const& file) { return file == standardStream; };
        if (std::ranges::any_of(files, isStandardInput))
            return false;
        bool isTooLarge = false;
        for (std::string const& file : files) {
            Formats::InputFile const input(file, {});
            if (!Formats::canBeStreamed(input))
                return false;
            isTooLarge |= !Formats::fitsIntoMemory(input);
        }
        return isTooLarge;
    } catch (Mell::Exception const&) {
        return false;
    }
}

}  // namespace

Streaming chooseStreaming(CutOptions& options, Caller& caller, std::vector<std::string> inMemory)
{
    addCommon(options, inMemory);
    if (!options.stream) {
        options.stream = caller.wantsFiles() && inMemory.empty() && areTooLarge(options);
        return options.stream ? Streaming::ForSize : Streaming::No;
    }
    if (!caller.wantsFiles())
        throw UsageError(
            "--stream writes pieces to files while a part is read; name a folder for them.");
    if (!inMemory.empty())
        throw UsageError(inMemory.front() +
                         " needs parts in memory, but --stream cuts them while they are read.");
    return Streaming::AsAsked;
}

void tellOfStreaming(CutRun& run, Streaming streaming)
{
    if (streaming == Streaming::ForSize)
        run.remark(CutRemark::Kind::RequestChanged,
                   "The parts do not fit into memory: they are cut while they are read, and not "
                   "mended.");
}
