// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/FuzzFiles.h"

#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"

void writeFuzzStl(std::string const& name, Soup const& soup)
{
    Formats::writePart(name, "part", *kernelOf(soup),
                       *Formats::FormatRegistry::instance().byName("stl"), {},
                       Formats::Overwrite::Allow);
}
