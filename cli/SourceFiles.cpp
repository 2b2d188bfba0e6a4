// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SourceFiles.h"

#include "cli/StandardStreams.h"
#include "host/formats/FileError.h"
#include "host/formats/PartFiles.h"
#include "platform/jobs/SequencerLauncher.h"

namespace {

/// The file itself, or what has come by standard input.
class Source
{
public:
    explicit Source(std::string const& file) : m_path(file)
    {
        if (file == standardStream)
            m_path = spoolStandardInput(m_spool.emplace());
    }
    std::filesystem::path const& path() const { return m_path; }

    /// Looks into the file; what it lacks is said under a name that the user knows.
    ///
    /// throws  what `look` throws
    template <typename Look>
    auto look(Look const& look) const
    {
        try {
            return look();
        } catch (Formats::FileError const& e) {
            if (m_spool)
                throw Formats::FileError("standard input", e.problem());
            throw;
        }
    }

private:
    std::optional<SpoolFolder> m_spool;
    std::filesystem::path m_path;
};

}  // namespace

void multiplyPoints(MeshKernel& kernel, float factor)
{
    if (factor == 1)
        return;
    for (UVertex<float>* const vertex : kernel.getMesh()->vertices)
        vertex->P() = vertex->cP() * factor;
    kernel.UpdateBoundingBox();
}

std::vector<SourcePart> readSource(std::string const& file, SourceScale const& scale)
{
    Base::SequencerLauncher display(("Reading " + file).c_str(), 100, true);
    display.setCancelEnabled(true);
    Source const source(file);
    Formats::MeshFormat const* format = nullptr;
    auto loaded = source.look([&] {
        format =
            &Formats::FormatRegistry::instance().forContent(Formats::InputFile(source.path(), {}));
        return Formats::readParts(
            source.path(), [&](int percent) { display.setProgress(std::uint64_t(percent)); });
    });
    float const factor = format->namesUnit() ? scale.ofAll : scale.ofAll * scale.unit;
    std::vector<SourcePart> parts;
    for (Formats::LoadedPart& part : loaded) {
        multiplyPoints(*part.kernel, factor);
        parts.push_back({file, format, std::move(part.name), std::move(part.kernel), part.color});
    }
    return parts;
}
