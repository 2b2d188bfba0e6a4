// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Terminal.h"

#include "cli/CommonOptions.h"
#include "cli/Failure.h"
#include "cli/ProgressLine.h"
#include "cli/SourceList.h"

PartSource fileSource(std::string const& file, SourceScale const& scale)
{
    return {file, [file, scale] { return readSource(file, scale); }, true};
}

std::vector<PartSource> Terminal::sources(CommonOptions const& options)
{
    std::vector<PartSource> sources;
    for (std::string const& file : sourceFiles(options.files, options.isRecursive))
        sources.push_back(fileSource(file, options.scale()));
    return sources;
}

std::shared_ptr<Base::ProgressSink> Terminal::progressSink(bool isQuiet)
{
    return std::make_shared<ProgressLine>(isTerminal() && !isQuiet);
}

void Terminal::tell(std::string const& text)
{
    remark(text);
}

void Terminal::complain(std::string const& text)
{
    ::complain(text);
}
