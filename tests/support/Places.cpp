// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Places.h"

#include <filesystem>

std::string sourcePath(std::string const& name)
{
    return MELL_SOURCE_DIR "/" + name;
}

std::string builtPath(std::string const& name)
{
    return MELL_BINARY_DIR "/" + name;
}

std::string picturePath(std::string const& name)
{
    std::filesystem::path const folder = MELL_BINARY_DIR "/../pictures";
    std::filesystem::create_directories(folder);
    return (folder / name).string();
}

std::string realModelPath(std::string const& name)
{
    return MELL_TEST_MESHES "/" + name;
}
