// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"
#include "host/formats/ProjectXml.h"
#include "host/formats/ThreeMfModel.h"

#include <functional>
#include <vector>

namespace Formats {

/// Reads a 3MF file: walks the build from its items through components to meshes.
class ThreeMfReader
{
public:
    ThreeMfReader(InputFile const& input, std::string const& defaultName, Progress const& progress);

    /// Throws FileError.
    std::vector<LoadedPart> read();

    /// The objects of a project, with records and placements as they were saved, and then the parts
    /// of build items that the project does not know. Throws FileError.
    std::vector<ProjectObject> readProject();

private:
    /// The share of the progress that goes to the library's own reading.
    static constexpr int percentForLoading = 70;

    /// A 3x4 transform, rows of the linear part with the translation last; double, since several
    /// are multiplied.
    struct Placement
    {
        double m[3][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};
    };

    static Placement placementFrom(NMR::MODELTRANSFORM const& transform);
    static Placement combined(Placement const& outer, Placement const& inner);

    void load();
    double millimetresPerUnit() const;
    void forEachItem(std::function<void(ThreeMfHandle const&)> const& visit) const;
    Placement unitScale() const;
    void readBuildItem(ThreeMfHandle const& item, Placement const& scale);
    std::string projectText() const;
    std::string itemIdentifier(ThreeMfHandle const& item) const;
    /// The item's own mesh with the item's transform as its matrix; null for an assembly.
    std::shared_ptr<MeshKernel> readPlain(ThreeMfHandle const& item) const;
    std::unique_ptr<UMesh<float>> readRecords(ThreeMfHandle const& object) const;
    void readVertices(UMesh<float>& mesh, ThreeMfHandle const& object) const;
    void readTriangles(UMesh<float>& mesh, ThreeMfHandle const& object) const;
    void appendOtherParts(std::vector<ProjectObject>& objects);
    void tellMeshProgress(DWORD step) const;
    bool isSupport(ThreeMfHandle const& object) const;
    unsigned colorOf(ThreeMfHandle const& object) const;
    void readObject(ThreeMfHandle const& object, Placement const& placement,
                    std::string const& outerName, int depth);
    void readComponents(ThreeMfHandle const& components, Placement const& placement,
                        std::string const& name, int depth);
    void readMesh(ThreeMfHandle const& mesh, Placement const& placement, std::string const& name);
    std::string nameOf(ThreeMfHandle const& object) const;
    std::string uniqueName(std::string const& name) const;
    /// Throws FileError for a result of the library that is no success.
    void check(LIB3MFRESULT result, ThreeMfHandle const& object) const;

    InputFile const& m_input;
    std::string m_defaultName;
    Progress const& m_progress;
    ThreeMfHandle m_model;
    std::vector<LoadedPart> m_parts;
};

}  // namespace Formats
