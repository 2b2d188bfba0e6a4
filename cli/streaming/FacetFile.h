// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/SourceFiles.h"
#include "host/formats/Facet.h"

#include <functional>
#include <string>

/// A file of the command line whose triangles are handed on as they are read, in millimetres.
class FacetFile
{
public:
    /// source    a path, or what stands for standard input, which then holds a binary STL
    /// progress  percentages; none for standard input
    FacetFile(std::string source, SourceScale const& scale, std::function<void(int)> progress);

    /// Reads the file from its beginning. Throws Formats::FileError, Mell::AbortException if the user
    /// cancels.
    void read(Formats::TakeFacets const& take) const;
    /// Whether it can be read more than once.
    bool isFile() const;

private:
    std::string m_source;
    float m_scale;
    std::function<void(int)> m_progress;
};
