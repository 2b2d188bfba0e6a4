// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ThreeMfModel.h"

#include "host/formats/FileError.h"

#include <algorithm>

namespace Formats {

PointLocale::PointLocale()
    : m_point(newlocale(LC_NUMERIC_MASK, "C", duplocale(uselocale(locale_t(0))))),
      m_previous(uselocale(m_point))
{}

PointLocale::~PointLocale()
{
    uselocale(m_previous);
    freelocale(m_point);
}

bool ThreeMfProgress::report(int percent, NMR::ProgressIdentifier, void* self)
{
    auto& progress = *static_cast<ThreeMfProgress*>(self);
    if (!progress.m_progress || progress.m_thrown)
        return !progress.m_thrown;
    // The library counts stage by stage and gives -1 for "still there".
    progress.m_last = std::max(progress.m_last, std::clamp(percent, 0, 100));
    try {
        progress.m_progress(progress.m_from +
                            (progress.m_to - progress.m_from) * progress.m_last / 100);
    } catch (...) {
        progress.m_thrown = std::current_exception();
    }
    return !progress.m_thrown;
}

void ThreeMfProgress::rethrow() const
{
    if (m_thrown)
        std::rethrow_exception(m_thrown);
}

QString lastThreeMfError(ThreeMfHandle const& object)
{
    DWORD code = 0;
    LPCSTR message = nullptr;
    if (object.get() && NMR::lib3mf_getlasterror(object.get(), &code, &message) == 0 && message &&
        *message)
        return QString::fromUtf8(message) + '.';
    return FileError::tr("error %1.").arg(code);
}

}  // namespace Formats
