// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace Base {
struct StepFacts;
}

/// An undo step as a list shows it: what was done, to which part, and how much, in the language, the
/// unit and the numbers of the window. "Move: vase by 10 mm in x"
QString stepText(Base::StepFacts const& facts);
