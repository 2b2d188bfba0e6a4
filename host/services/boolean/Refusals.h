// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/OperandSoup.h"

#include <optional>

class StageProgress;

/// Why a boolean is refused, each as an exception whose sentence names a place where there is one.
/// Those that one operand is to blame for are OperandErrors.
namespace Refusal {

/// A border of an operand, met by the other one.
[[noreturn]] void throwOpen(Operand operand, UPoint3<float> const& place);

/// A triangle of an operand has a coordinate that is no finite number.
///
/// place  a corner of it that is one, if there is one
[[noreturn]] void throwNotFinite(Operand operand, std::optional<UPoint3<float>> const& place);

/// A triangle of the part without area that cannot be removed.
[[noreturn]] void throwFlat(UPoint3<float> const& place);

/// More contacts than there is memory for.
[[noreturn]] void throwTooMuch();

/// The results contradict the operands. Blames the operand that is open or crosses itself nearest to
/// the place at which that was seen, if one does.
///
/// cost  some microseconds per triangle of both
[[noreturn]] void throwNotCombined(MeshArrays const& part, MeshArrays const& tool,
                                   std::optional<UPoint3<float>> const& place,
                                   StageProgress& progress);

}  // namespace Refusal
