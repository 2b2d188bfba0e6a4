// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"

#include <QString>

#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

namespace Formats {

/// The formats that can be read and written. A new one is a class of its own and one line in the
/// constructor.
class FormatRegistry
{
public:
    /// Made with the first call, never changed afterwards, and so for any thread.
    static FormatRegistry const& instance();

    std::vector<std::unique_ptr<MeshFormat>> const& formats() const { return m_formats; }

    /// The format of that name; null if there is none.
    MeshFormat const* byName(std::string_view name) const;

    /// The format that a new file of this name gets, by its extension in any case. Throws FileError
    /// that lists the extensions.
    MeshFormat const& forNewFile(std::filesystem::path const& path) const;

    /// The format of a file's content. The extension is asked only to choose between formats that
    /// both recognise it, or when none does. Throws FileError.
    MeshFormat const& forContent(InputFile const& input) const;

private:
    FormatRegistry();
    MeshFormat const* byExtension(std::filesystem::path const& path) const;
    QString allExtensions() const;

    std::vector<std::unique_ptr<MeshFormat>> m_formats;
};

}  // namespace Formats
