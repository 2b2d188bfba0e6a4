// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/BooleanRuns.h"

Soup combined(Soup const& a, Soup const& b, Intersect::BooleanType type)
{
    auto const first = kernelOf(a);
    auto const second = kernelOf(b);
    MeshKernel result;
    std::vector<MeshKernel*> out{&result};
    Intersect::boolean(first.get(), second.get(), out, type, {}, 1);
    return soupOf(result);
}

std::pair<Soup, Soup> split(Soup const& a, Soup const& b)
{
    auto const first = kernelOf(a);
    auto const second = kernelOf(b);
    MeshKernel within, outside;
    Intersect::boolean_subtract_keep(first.get(), second.get(), &within, &outside, {}, 1);
    return {soupOf(within), soupOf(outside)};
}

BooleanPieces booleansOf(Soup const& a, Soup const& b)
{
    auto [within, outside] = split(a, b);
    return {combined(a, b, Intersect::BOOLEAN_UNION), combined(a, b, Intersect::BOOLEAN_INTERSECT),
            combined(a, b, Intersect::BOOLEAN_SUBTRACT), std::move(within), std::move(outside)};
}
