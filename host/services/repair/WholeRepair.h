// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/MeshErrors.h"
#include "platform/services/Repair.h"

#include <functional>
#include <utility>
#include <vector>

/// The repair of a whole mesh, step by step. Each step's outcome is taken over only where
/// ShapeProof tells that the shape is kept, and all of it only if the number of errors has fallen.
class WholeRepair
{
public:
    /// report, progress  borrowed; the function may be empty
    WholeRepair(MeshArrays mesh, Repair::Report& report, std::function<void(int)> const& progress);

    /// Takes the percentages from 5 to 95, some of them more than once. Returns whether the mesh
    /// was changed.
    bool run();
    /// Whether no error is left.
    bool isSound() const { return m_errorsLeft == 0; }
    MeshArrays takeMesh() { return std::move(m_mesh); }

private:
    using Places = std::vector<MeshArrays::Point>;
    /// What a step would have done.
    using Outcomes = std::vector<std::pair<Repair::Flaw, Places>>;

    void mendSoup();
    void mendOrientation();
    void closeSurface();
    void removeFlat();
    void mendShells(MeshErrors& errors);
    void mendCrossings(MeshErrors const& errors);
    bool take(MeshArrays candidate, Outcomes const& outcomes);
    bool isShapeKept(MeshArrays const& candidate);
    MeshErrors judge(int from, int to) const;
    void noteRest(Repair::EvaluateErrors::Counts const& counts);

    MeshArrays m_mesh;
    Repair::Report& m_report;
    std::function<void(int)> const& m_progress;
    StageProgress m_stages;
    std::size_t m_errorsLeft = 0;
};
