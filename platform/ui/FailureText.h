// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>

namespace Base {

/// What the user is told of the exception that is being handled: its own sentence, one on the lack of memory,
/// or else `other`, which is translated in the context "MellCommons".
QString failureText(char const* other = QT_TRANSLATE_NOOP("MellCommons",
                                                          "This could not be done."));

}  // namespace Base
