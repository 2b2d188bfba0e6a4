// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/InputFile.h"

#include <Model/COM/NMR_DLLInterfaces.h>

#include <QString>

#include <exception>
#include <locale.h>
#include <string>

namespace Formats {

/// An object of lib3mf, released with its handle.
class ThreeMfHandle
{
public:
    ThreeMfHandle() = default;
    ~ThreeMfHandle() { reset(); }
    ThreeMfHandle(ThreeMfHandle const&) = delete;
    ThreeMfHandle& operator=(ThreeMfHandle const&) = delete;

    NMR::PLib3MFBase* get() const { return m_object; }
    /// For an operation that makes an object.
    NMR::PLib3MFBase** out()
    {
        reset();
        return &m_object;
    }

private:
    void reset()
    {
        if (m_object)
            NMR::lib3mf_release(m_object);
        m_object = nullptr;
    }

    NMR::PLib3MFBase* m_object = nullptr;
};

/// While it lives, the numbers of the C library are written with a point on this thread, whatever
/// the user's locale: lib3mf converts by it.
class PointLocale
{
public:
    PointLocale();
    ~PointLocale();
    PointLocale(PointLocale const&) = delete;
    PointLocale& operator=(PointLocale const&) = delete;

private:
    locale_t m_point;
    locale_t m_previous;
};

/// Carries the library's progress to ours, scaled to a range of percentages. An exception from
/// there stops the library; rethrow() lets it go on once the library has returned.
class ThreeMfProgress
{
public:
    ThreeMfProgress(std::function<void(int)> const& progress, int from, int to)
        : m_progress(progress), m_from(from), m_to(to)
    {}

    /// With the object itself as the user pointer.
    static bool report(int percent, NMR::ProgressIdentifier, void* self);
    void rethrow() const;

private:
    std::function<void(int)> const& m_progress;
    int m_from;
    int m_to;
    int m_last = 0;
    std::exception_ptr m_thrown;
};

/// What the library says about its last failure with an object, as a sentence.
QString lastThreeMfError(ThreeMfHandle const& object);

}  // namespace Formats
