// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/FilesScene.h"

#include "host/formats/PartFiles.h"

QString FilesScene::partFile(std::string const& name, Soup const& soup) const
{
    auto const target = folder / name;
    Formats::writePart(target, target.stem().string(), *kernelOf(soup),
                       Formats::FormatRegistry::instance().forNewFile(target), {},
                       Formats::Overwrite::Allow);
    return path(name);
}
