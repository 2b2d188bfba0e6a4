// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"
#include "host/services/MeshErrors.h"
#include "host/services/repair/ShapeProof.h"
#include "platform/services/Repair.h"

#include <functional>
#include <utility>
#include <vector>

class SurfaceFaults;

/// The repair of a whole mesh, step by step. Each step's outcome is taken over only where
/// ShapeProof tells that the shape is kept, and all of it only if the number of errors has fallen.
class WholeRepair
{
public:
    /// errors            of the mesh, all of them
    /// report, progress  borrowed; the function may be empty
    WholeRepair(MeshArrays mesh, MeshErrors errors, Repair::Report& report,
                std::function<void(int)> const& progress);

    /// Takes the percentages from 20 to 95, some of them more than once. Returns whether the mesh
    /// was changed.
    bool run();
    /// Whether no error is left.
    bool isSound() const { return m_errorsLeft == 0; }
    MeshArrays takeMesh() { return std::move(m_mesh); }

private:
    /// What is tried, one after the other, until the number of errors falls.
    enum class Effort
    {
        full,
        /// Holes are left open where what closes them would cross other triangles.
        cautious,
        /// Nothing else than crossings is mended.
        crossings,
    };
    using Places = std::vector<MeshArrays::Point>;
    /// What a step would have done.
    using Outcomes = std::vector<std::pair<Repair::Flaw, Places>>;

    bool mendFlaws();
    bool takeApart();
    void mend();
    void setOneSidedAside();
    void putAsideBack();
    void mendSoup();
    void dropWalls();
    void mendOrientation();
    void closeSurface();
    void removeFlat();
    void mendShells();
    void mendCrossings();
    void uniteLayers();
    bool take(MeshArrays candidate, Outcomes const& outcomes);
    void takeClosed(MeshArrays candidate, SurfaceFaults const& before);
    ShapeProof::Verdict prove(MeshArrays const& candidate);
    void judge(int from, int to);
    Places newCrossings(MeshArrays const& candidate);
    void forgetWhatIsGone();
    void noteRest(std::string const& reason);
    void noteAllLeft(Repair::Report const& tried);

    MeshArrays m_mesh;
    /// Triangles of pieces with one side only, which nothing is done to.
    std::vector<MeshArrays::Corners> m_aside;
    MeshErrors m_errors;
    /// Whether the errors are those of the mesh as it is.
    bool m_isJudged = true;
    Repair::Report& m_report;
    std::function<void(int)> const& m_progress;
    StageProgress m_stages;
    std::size_t m_errorsLeft = 0;
    Effort m_effort = Effort::full;
    bool m_hasOneSided = false;
};
