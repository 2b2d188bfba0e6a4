// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/LightPackage.h"
#include "host/formats/MeshBuilder.h"
#include "host/formats/MeshFormat.h"
#include "host/formats/ProjectXml.h"
#include "host/formats/ThreeMfModel.h"

#include <functional>
#include <vector>

namespace Formats {

/// Reads a 3MF file: walks the build from its items through components to meshes.
///
/// lib3mf reads the package; the meshes are taken out before where that can be, which is several
/// times as fast.
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
    /// The share of the progress that goes to the file's content; the rest is for the meshes.
    static constexpr int percentForLoading = 70;

    /// A 3x4 transform, rows of the linear part with the translation last; double, since several
    /// are multiplied.
    struct Placement
    {
        double m[3][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};

        UPoint3<float> applied(UPoint3<float> const& p) const;
        bool isReflection() const;
    };

    static Placement placementFrom(NMR::MODELTRANSFORM const& transform);
    static Placement combined(Placement const& outer, Placement const& inner);

    void load();
    void loadLight();
    void loadByLibrary(std::function<LIB3MFRESULT(ThreeMfHandle const& reader)> const& read);
    double millimetresPerUnit() const;
    void forEachItem(std::function<void(ThreeMfHandle const&)> const& visit) const;
    Placement unitScale() const;
    void readBuildItem(ThreeMfHandle const& item, Placement const& scale);
    std::string projectText() const;
    std::string itemIdentifier(ThreeMfHandle const& item) const;
    /// The item's own mesh with the item's transform as its matrix; null for an assembly.
    std::shared_ptr<MeshKernel> readPlain(ThreeMfHandle const& item);
    std::unique_ptr<UMesh<float>> readRecords(ThreeMfHandle const& object);
    /// The object's mesh: the one that was taken out before, or what the library has, which is put
    /// into `room`.
    ModelMesh const& meshOf(ThreeMfHandle const& object, ModelMesh& room) const;
    void requireCornersInRange(ThreeMfHandle const& object, ModelMesh const& mesh) const;
    void addVertices(UMesh<float>& mesh, ModelMesh const& source);
    void addTriangles(UMesh<float>& mesh, ModelMesh const& source);
    void appendOtherParts(std::vector<ProjectObject>& objects);
    /// A step is a vertex or a triangle.
    void tellMeshStep();
    bool isSupport(ThreeMfHandle const& object) const;
    unsigned colorOf(ThreeMfHandle const& object) const;
    void readObject(ThreeMfHandle const& object, Placement const& placement,
                    std::string const& outerName, int depth);
    void readComponents(ThreeMfHandle const& components, Placement const& placement,
                        std::string const& name, int depth);
    void readMesh(ThreeMfHandle const& object, Placement const& placement, std::string const& name);
    std::vector<UVertex<float>*> joinVertices(MeshBuilder& builder, ModelMesh const& mesh,
                                              Placement const& placement, std::string const& name);
    std::string nameOf(ThreeMfHandle const& object) const;
    std::string uniqueName(std::string const& name) const;
    /// Throws FileError for a result of the library that is no success.
    void check(LIB3MFRESULT result, ThreeMfHandle const& object) const;

    InputFile const& m_input;
    std::string m_defaultName;
    /// Never tells less than it told before.
    Progress m_progress;
    ThreeMfHandle m_model;
    std::optional<LightPackage> m_light;
    std::uint64_t m_meshSteps = 0;
    std::uint64_t m_meshStepsDone = 0;
    std::vector<LoadedPart> m_parts;
};

}  // namespace Formats
