// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/FailureText.h"

#include "platform/jobs/Exceptions.h"

#include <exception>
#include <new>

namespace Base {

QString failureText(char const* other)
{
    try {
        throw;
    } catch (Mell::Exception const& failure) {
        return QString::fromUtf8(failure.what());
    } catch (std::bad_alloc const&) {
        return QCoreApplication::translate(
            "MellCommons", "There is not enough free memory; close other programs and try again.");
    } catch (std::exception const& failure) {
        return QString::fromUtf8(failure.what());
    } catch (...) {
        return QCoreApplication::translate("MellCommons", other);
    }
}

}  // namespace Base
