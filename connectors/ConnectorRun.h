// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorProgress.h"
#include "cutjobs/common/CutRemark.h"
#include "cutjobs/common/CutResultMap.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/services/CombiningNotes.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// In which way a connector run cuts its parts.
struct RunForm
{
    /// Two cuts: the lower half comes from the base plane, the upper one from the plane moved along
    /// its normal. Otherwise one cut makes both.
    bool hasTwoCuts;
    /// The stage of each cut, and where the connectors' stage begins.
    int cutSpan;
    int connectorStart;
    /// Reports 0 before the first part.
    bool reportsStart;
    /// Without connectors the upper half is kept before the lower one.
    bool plainUpperFirst;

    static constexpr RunForm twoCuts() { return {true, 20, 40, false, false}; }
    static constexpr RunForm oneCut() { return {false, 25, 25, true, true}; }
};

/// The two pieces of a part.
struct Halves
{
    std::shared_ptr<MeshKernel> lower = std::make_shared<MeshKernel>();
    std::shared_ptr<MeshKernel> upper = std::make_shared<MeshKernel>();
    /// What is to be told of both.
    CombiningNotes notes = {};
};

/// One part on its way through a run.
struct PartOfRun
{
    int index;
    Mesh::DocumentObject* object;
    /// The part's own mesh, uncut; only read.
    MeshKernel* source;
    Halves plain;
    /// The planes that have made the faces of the two halves; borrowed.
    MeshKernel const* lowerPlane = nullptr;
    MeshKernel const* upperPlane = nullptr;
    /// The section face of the cut at the base plane.
    std::shared_ptr<MeshKernel> cap;
    /// Makes the progress function of a stage.
    std::function<std::function<void(int)>(ConnectorProgress::Share)> stage;
};

/// The run that all connector cuts share: it cuts part by part, has the connectors made and keeps
/// the halves that have triangles.
///
/// See docs/decisions/0008-connectors.md.
class ConnectorRun
{
public:
    /// Gives the halves with connectors, in place of the plain ones, which it may give up; or
    /// nothing where none fit.
    using Connect = std::function<std::optional<Halves>(PartOfRun&)>;

    /// base, offset  plane meshes, borrowed; offset is not used by the form of one cut
    /// bounded       the plane ends at its rectangle
    ConnectorRun(RunForm const& form, std::vector<Mesh::DocumentObject*> parts, MeshKernel& base,
                 MeshKernel& offset, bool bounded)
        : m_form(form),
          m_parts(std::move(parts)),
          m_base(base),
          m_offset(offset),
          m_bounded(bounded)
    {}

    /// Told of each part before its turn.
    void setAtPart(std::function<void(Mesh::DocumentObject*)> atPart)
    {
        m_atPart = std::move(atPart);
    }

    /// remarks  receives what a person must be told of the plain cuts
    /// throws   Mell::AbortException "Aborting..." where a cut was aborted; what else the services,
    ///          the connectors and `progress` throw
    CutResultMap run(std::function<void(int)> const& progress, Connect const& connect,
                     CutRemarks& remarks) const;

private:
    PartOfRun cut(int index, Mesh::DocumentObject* object, MeshKernel* source,
                  std::function<void(int)> const& progress, CutRemarks& remarks) const;

    RunForm m_form;
    std::vector<Mesh::DocumentObject*> m_parts;
    MeshKernel& m_base;
    MeshKernel& m_offset;
    bool m_bounded;
    std::function<void(Mesh::DocumentObject*)> m_atPart;
};

/// Runs one mesh stage. An abort, whatever its text, is logged and goes on as the user's cancel;
/// other exceptions pass.
void runMeshStage(std::function<void()> const& stage);
