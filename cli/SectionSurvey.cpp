// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/SectionSurvey.h"

#include "cli/DocumentParts.h"
#include "connectors/PinPlacement.h"
#include "connectors/SectionPlanes.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/SequencerLauncher.h"
#include "platform/services/Intersect.h"

#include <memory>

namespace {

/// The faces that a plane cuts in a part.
std::unique_ptr<MeshKernel> sectionOf(MeshKernel const& part, MeshKernel& plane)
{
    Base::SequencerLauncher display("Measuring the section", 100, true);
    display.setCancelEnabled(true);
    MeshKernel copy(part);
    MeshKernel sideA, sideB;
    auto section = std::make_unique<MeshKernel>();
    Intersect::cutByPlane(
        &copy, &plane, &sideA, &sideB, section.get(),
        [&](int percent) { display.setProgress(std::uint64_t(percent)); }, true);
    return section;
}

SectionFacts factsOf(MeshKernel& section, PlaneFrame const& frame,
                     ConnectorOptions const& connectors)
{
    SectionFacts facts;
    facts.area = measureMesh(section).area;
    std::vector<SectionContour> const contours = extractSectionContours(&section);
    facts.contours = contours.size();
    if (connectors.cutType() == SECTIONCUT_PINHOLE) {
        facts.positions.emplace();
        PinHoleParas const paras = connectors.pinHoleParas();
        if (!contours.empty())
            facts.positions = PinPlacement(paras, frame).computePositions(contours, &section);
    }
    return facts;
}

}  // namespace

void surveySections(std::vector<CutPart>& parts, Freecut::PlaneGraphicObject const& plane,
                    SectionOptions const& options)
{
    std::vector<Mesh::DocumentObject*> const objects = objectsOf(parts);
    SectionPlanes const planes(plane, objects, options.bounded);
    MeshKernel planeMesh;
    planes.calculateCutPlaneMesh(planeMesh.getMesh().get());
    for (CutPart& part : parts) {
        MeshKernel const& kernel = *part.object->meshProperty->getMesh();
        part.section = factsOf(*sectionOf(kernel, planeMesh), planes.frame(), options.connectors);
    }
}
