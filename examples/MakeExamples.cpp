// SPDX-License-Identifier: GPL-3.0-or-later
#include "examples/ExampleParts.h"
#include "host/formats/PartFiles.h"

#include <cstdio>

namespace {

void write(std::filesystem::path const& path, std::unique_ptr<MeshKernel> const& part)
{
    auto const& format = Formats::FormatRegistry::instance().forNewFile(path);
    Formats::writePart(path, path.stem().string(), *part, format, {}, Formats::Overwrite::Allow);
}

}  // namespace

int main(int count, char** arguments)
{
    if (count != 2) {
        std::fputs("Usage: make_examples FOLDER\n", stderr);
        return 2;
    }
    std::filesystem::path const folder = arguments[1];
    try {
        write(folder / "vase.stl", vase());
        write(folder / "bracket.3mf", bracket());
        write(folder / "elbow.obj", elbow());
    } catch (Mell::Exception const& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
