// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/fuzz/FileRuns.h"

#include "host/formats/FormatRegistry.h"
#include "host/formats/PartFiles.h"
#include "tests/support/MeshBuilders.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>

namespace {

std::string contentOf(std::string const& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

/// One change; what stands at a place is more telling than chance, so bytes come from the file too.
void spoil(std::string& bytes, std::mt19937& random)
{
    if (bytes.empty())
        return;
    std::size_t const place = random() % bytes.size();
    std::size_t const count = std::min<std::size_t>(1 + random() % 40, bytes.size() - place);
    switch (random() % 6) {
        case 0:
            bytes[place] = char(random());
            break;
        case 1:
            bytes[place] = bytes[random() % bytes.size()];
            break;
        case 2:
            bytes.erase(place, count);
            break;
        case 3:
            bytes.insert(place, bytes.substr(random() % bytes.size(), count));
            break;
        case 4:
            bytes.resize(place);
            break;
        default:
            // What counts and lengths are likely to go wrong with.
            std::fill_n(bytes.begin() + std::ptrdiff_t(place), std::min<std::size_t>(count, 4),
                        random() % 2 ? '\xff' : '9');
    }
}

}  // namespace

FileRuns::FileRuns()
{
    for (auto const& format : Formats::FormatRegistry::instance().formats()) {
        std::string const extension(format->name().substr(0, format->name().find('-')));
        std::string const path =
            m_folder.filePath("seed." + QString::fromStdString(extension)).toStdString();
        Formats::writePart(path, "part", *kernelOf(box(1, 2, 3)), *format, {},
                           Formats::Overwrite::Allow);
        m_seeds.push_back({extension, contentOf(path)});
    }
}

bool FileRuns::run(unsigned seed)
{
    std::mt19937 random(seed);
    Seed const& chosen = m_seeds[random() % m_seeds.size()];
    std::string bytes = chosen.bytes;
    for (unsigned changes = 1 + random() % 4; changes > 0; --changes)
        spoil(bytes, random);
    std::string const name = "fuzz-file-" + std::to_string(seed) + "." + chosen.extension;
    std::string const path =
        m_folder.filePath("spoilt." + QString::fromStdString(chosen.extension)).toStdString();
    std::ofstream(path, std::ios::binary) << bytes;
    ++m_operations;
    std::string fault;
    try {
        Formats::readParts(path);
        return true;
    } catch (Mell::Exception const& failure) {
        if (std::string(failure.what()).find(' ') != std::string::npos)
            return true;
        fault = "refused without a sentence";
    } catch (std::exception const& failure) {
        fault = std::string("thrown: ") + failure.what();
    }
    std::ofstream(name, std::ios::binary) << bytes;
    std::printf("files, seed %u: %s\n  the file is %s\n", seed, fault.c_str(), name.c_str());
    std::fflush(stdout);
    return false;
}
