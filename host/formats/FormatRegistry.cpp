// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/FormatRegistry.h"

#include "host/formats/ObjFormat.h"
#include "host/formats/OffFormat.h"
#include "host/formats/PlyFormat.h"
#include "host/formats/StlFormat.h"
#include "host/formats/TextTokens.h"
#include "host/formats/ThreeMfFormat.h"

#include <algorithm>
#include <array>

namespace Formats {
namespace {

std::string lowerExtension(std::filesystem::path const& path)
{
    std::string extension = path.extension().string();
    if (!extension.empty())
        extension.erase(0, 1);
    for (char& c : extension)
        if (c >= 'A' && c <= 'Z')
            c = char(c - 'A' + 'a');
    return extension;
}

}  // namespace

FormatRegistry::FormatRegistry()
{
    // Of formats that share an extension, the first one is for new files.
    m_formats.push_back(std::make_unique<StlFormat>(StlFormat::Encoding::Binary));
    m_formats.push_back(std::make_unique<StlFormat>(StlFormat::Encoding::Ascii));
    m_formats.push_back(std::make_unique<PlyFormat>(PlyFormat::Encoding::Binary));
    m_formats.push_back(std::make_unique<PlyFormat>(PlyFormat::Encoding::Ascii));
    m_formats.push_back(std::make_unique<ThreeMfFormat>());
    m_formats.push_back(std::make_unique<ObjFormat>());
    m_formats.push_back(std::make_unique<OffFormat>());
}

FormatRegistry const& FormatRegistry::instance()
{
    static FormatRegistry const registry;
    return registry;
}

MeshFormat const* FormatRegistry::byName(std::string_view name) const
{
    auto const found = std::ranges::find(m_formats, name, [](auto& f) { return f->name(); });
    return found == m_formats.end() ? nullptr : found->get();
}

MeshFormat const* FormatRegistry::byExtension(std::filesystem::path const& path) const
{
    std::string const extension = lowerExtension(path);
    for (auto const& format : m_formats) {
        auto const own = format->extensions();
        if (std::ranges::find(own, extension) != own.end())
            return format.get();
    }
    return nullptr;
}

MeshFormat const& FormatRegistry::forNewFile(std::filesystem::path const& path) const
{
    if (auto const* format = byExtension(path))
        return *format;
    throw FileError(
        path, FileError::tr("its extension names no format; use one of %1.").arg(allExtensions()));
}

MeshFormat const& FormatRegistry::forContent(InputFile const& input) const
{
    std::array<char, MeshFormat::recognitionBytes> buffer;
    std::size_t const count = input.peekHead(std::as_writable_bytes(std::span(buffer)));
    std::string_view const head = withoutByteOrderMark({buffer.data(), count});

    MeshFormat const* const named = byExtension(input.path());
    if (named && named->recognises(head, input.size()))
        return *named;
    for (auto const& format : m_formats)
        if (format->recognises(head, input.size()))
            return *format;
    // A damaged file of a known name gets the error of the format it claims to be.
    if (named)
        return *named;
    throw FileError(
        input.path(),
        FileError::tr("its content is in no known format; %1 were expected.").arg(allExtensions()));
}

QString FormatRegistry::allExtensions() const
{
    QStringList seen;
    for (auto const& format : m_formats)
        for (auto const extension : format->extensions())
            seen << '.' + QString::fromStdString(std::string(extension));
    seen.removeDuplicates();
    QString const last = seen.takeLast();
    return FileError::tr("%1 or %2").arg(seen.join(", "), last);
}

}  // namespace Formats
