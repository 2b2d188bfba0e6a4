// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/ModelFile.h"

#include "tests/support/MadeModels.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

void writeStl(Soup const& soup, std::string const& path)
{
    std::vector<char> bytes(84 + 50 * soup.triangles.size(), 0);
    auto const count = std::uint32_t(soup.triangles.size());
    std::memcpy(bytes.data() + 80, &count, 4);
    char* place = bytes.data() + 84;
    for (auto const& t : soup.triangles) {
        place += 12;
        for (std::uint32_t const corner : t) {
            UPoint3<float> const& p = soup.points[corner];
            float const coordinates[3] = {p.X(), p.Y(), p.Z()};
            std::memcpy(place, coordinates, 12);
            place += 12;
        }
        place += 2;
    }
    std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
}

std::string modelFile(std::string const& name, std::string const& folder)
{
    std::string const real = std::string(MELL_TEST_MESHES) + "/" + name;
    if (std::filesystem::exists(real))
        return real;
    std::string const made = folder + "/" + name;
    writeStl(name == "fandisk-13k.stl" ? mechanicalPlate() : scannedHead(32), made);
    return made;
}
