// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/MeshSurvey.h"

#include "platform/jobs/BackgroundWork.h"

#include <cmath>
#include <new>

namespace {

using Linear = std::array<float, 9>;

UVector3<double> column(UMatrix4<float> const& matrix, int i)
{
    return {matrix(0, i), matrix(1, i), matrix(2, i)};
}

/// Whether a placement keeps angles: a motion, a reflection, or these with one scale.
bool isSimilarity(UMatrix4<float> const& matrix)
{
    constexpr double tolerance = 1e-5;
    UVector3<double> const x = column(matrix, 0);
    UVector3<double> const y = column(matrix, 1);
    UVector3<double> const z = column(matrix, 2);
    double const square = x | x;
    auto const isSmall = [&](double value) { return std::abs(value) <= tolerance * square; };
    return isSmall((y | y) - square) && isSmall((z | z) - square) && isSmall(x | y) &&
           isSmall(y | z) && isSmall(z | x);
}

/// The part of a placement on which a measurement depends; the identity for a similarity, whose
/// effect is known.
Linear linearPart(UMatrix4<float> const& matrix)
{
    if (isSimilarity(matrix))
        return {1, 0, 0, 0, 1, 0, 0, 0, 1};
    Linear linear;
    for (int row = 0; row < 3; ++row)
        for (int i = 0; i < 3; ++i)
            linear[std::size_t(3 * row + i)] = matrix(row, i);
    return linear;
}

UMatrix4<float> matrixOf(Linear const& linear)
{
    UMatrix4<float> matrix;
    for (int row = 0; row < 3; ++row)
        for (int i = 0; i < 3; ++i)
            matrix(row, i) = linear[std::size_t(3 * row + i)];
    return matrix;
}

MeshFacts placed(MeshFacts facts, MeshKernel const& kernel)
{
    UMatrix4<float> const& matrix = kernel.getMatrix();
    if (isSimilarity(matrix)) {
        double const scale = column(matrix, 0).GetLength();
        facts.volume *= scale * scale * scale;
        facts.area *= scale * scale;
    }
    facts.box = kernel.GetBox();
    return facts;
}

std::optional<MeshFacts> factsOf(UMesh<float> const& mesh, UMatrix4<float> const& matrix)
{
    try {
        return measureMesh(mesh, matrix);
    } catch (std::bad_alloc const&) {
        return {};
    }
}

}  // namespace

std::shared_ptr<MeshSurvey> MeshSurvey::shared()
{
    static std::weak_ptr<MeshSurvey> current;
    std::shared_ptr<MeshSurvey> survey = current.lock();
    if (!survey)
        current = survey = std::make_shared<MeshSurvey>();
    return survey;
}

MeshSurvey::MeshSurvey()
{
    m_thread.setMaxThreadCount(1);
}

MeshSurvey::~MeshSurvey()
{
    m_thread.clear();
    m_thread.waitForDone();
}

std::optional<MeshFacts> MeshSurvey::facts(Mesh::DocumentObject const& part)
{
    MeshKernel const* const kernel = part.meshProperty->getMesh();
    auto mesh = kernel ? kernel->readMesh() : nullptr;
    if (!mesh)
        return MeshFacts();
    Key const key(mesh.get(), linearPart(kernel->getMatrix()));
    Entry const& entry = entryOf(key, mesh);
    if (entry.facts)
        return placed(*entry.facts, *kernel);
    if (entry.request == 0)
        begin(key, std::move(mesh));
    return {};
}

void MeshSurvey::forget(Mesh::DocumentObject const& part)
{
    MeshKernel const* const kernel = part.meshProperty->getMesh();
    UMesh<float> const* const mesh = kernel ? kernel->readMesh().get() : nullptr;
    std::erase_if(m_entries, [&](auto const& item) { return item.first.first == mesh; });
}

MeshSurvey::Entry& MeshSurvey::entryOf(Key const& key,
                                       std::shared_ptr<UMesh<float> const> const& mesh)
{
    dropDead();
    Entry& entry = m_entries[key];
    // A new mesh may lie where a former one was.
    if (entry.mesh.lock() != mesh || entry.triangles != mesh->triangles.size())
        entry = {mesh, mesh->triangles.size(), {}, 0};
    return entry;
}

void MeshSurvey::begin(Key const& key, std::shared_ptr<UMesh<float> const> mesh)
{
    unsigned long const request = m_entries[key].request = ++m_lastRequest;
    ++m_running;
    m_thread.start([this, key, request, mesh = std::move(mesh)]() mutable {
        BackgroundWork::giveWay();
        std::optional<MeshFacts> const facts = factsOf(*mesh, matrixOf(key.second));
        mesh.reset();
        QMetaObject::invokeMethod(
            this, [this, key, request, facts] { take(key, request, facts); }, Qt::QueuedConnection);
    });
}

void MeshSurvey::take(Key const& key, unsigned long request, std::optional<MeshFacts> const& facts)
{
    --m_running;
    auto const place = m_entries.find(key);
    if (place != m_entries.end() && place->second.request == request)
        place->second.facts = facts;
    emit measured();
}

void MeshSurvey::dropDead()
{
    if (m_entries.size() < m_nextDrop)
        return;
    std::erase_if(m_entries, [](auto const& item) { return item.second.mesh.expired(); });
    m_nextDrop = 2 * m_entries.size() + 256;
}
