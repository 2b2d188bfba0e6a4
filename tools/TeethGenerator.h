// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/EdgeFrame.h"
#include "tools/TeethLayout.h"
#include "tools/TeethParas.h"

#include <cstddef>

namespace Freecut {

class PolygonProperty;
struct TeethEdge;

/// The parameters by which an edge got its teeth.
TeethParas parasOf(TeethEdge const& edge);

/// Puts teeth on the edges of a polygon that are under edit, by one set of parameters. What it
/// writes are the records of the edges; showing them is up to the caller.
class TeethGenerator
{
public:
    TeethParas const& paras() const { return m_paras; }
    void setParas(TeethParas const& paras) { m_paras = paras; }
    void setApplyAllEdges(bool isOn) { m_paras.applyAllEdges = isOn; }

    /// The record of an edge that has no teeth.
    TeethEdge freshEdge() const;

    /// Spreads teeth anew on the edges under edit, or on all edges if the parameters say so. A
    /// fault takes all of them out of the edit, unconfirmed teeth with it.
    TeethFault generate(PolygonProperty& polygon);
    /// The first half of it: the centres.
    TeethFault placeTeeth(PolygonProperty& polygon);
    /// The second half: outline and handles from the centres as they are.
    void shapeTeeth(PolygonProperty& polygon) const;

    /// Takes an edge under edit, and teeth that are confirmed there out of it: their parameters
    /// become the ones to edit. True if that has happened. generate() follows.
    bool beginEdge(PolygonProperty& polygon, int edge);
    /// An edge that was taken under edit and got no teeth has none any more, confirmed or not.
    static void giveUpEdge(PolygonProperty& polygon, int edge);

    /// Confirms what is under edit.
    void confirm(PolygonProperty& polygon) const;

    // Drags of a tooth of an edge under edit.

    /// False if the tooth stays where it is.
    bool slide(PolygonProperty& polygon, int edge, std::size_t tooth,
               UVector3<float> const& way) const;
    /// All teeth under edit follow the handle.
    void reshape(PolygonProperty& polygon, int edge, std::size_t tooth, UVector3<float> const& way);

private:
    EdgeFrame frameOf(PolygonProperty const& polygon, std::size_t edge) const;
    TeethFault layOutEdges(PolygonProperty const& polygon, std::vector<TeethLayout>& layouts) const;

    TeethParas m_paras;
};

}  // namespace Freecut
