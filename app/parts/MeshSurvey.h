// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/mesh/MeshFacts.h"
#include "platform/document/MeshDocumentObject.h"

#include <QObject>
#include <QThreadPool>

#include <array>
#include <map>
#include <memory>
#include <optional>

/// Measures the meshes of parts in the background and remembers the results as long as the meshes
/// live. Parts that share a mesh are measured once, and a move or a turn needs no new measurement.
///
/// A mesh that lies in a document is replaced, not written to, so it can be read meanwhile; after a
/// change in place forget() makes it measured anew.
///
/// thread  the user interface thread
class MeshSurvey : public QObject
{
    Q_OBJECT

public:
    /// The survey that all panels share; it lives as long as one of them.
    static std::shared_ptr<MeshSurvey> shared();

    MeshSurvey();
    /// Waits for the measurement that runs.
    ~MeshSurvey() override;

    /// What is known of a part as it is placed. If there is nothing yet, the measurement is begun
    /// and measured() follows. The volume of an open part says nothing. A mesh for which the memory
    /// did not suffice stays unknown.
    std::optional<MeshFacts> facts(Mesh::DocumentObject const& part);
    void forget(Mesh::DocumentObject const& part);

    /// Whether nothing is being measured.
    bool isIdle() const { return m_running == 0; }

signals:
    /// There is more to know than before.
    void measured();

private:
    using Linear = std::array<float, 9>;
    using Key = std::pair<UMesh<float> const*, Linear>;
    struct Entry
    {
        std::weak_ptr<UMesh<float> const> mesh;
        std::size_t triangles = 0;
        std::optional<MeshFacts> facts;
        unsigned long request = 0;
    };

    Entry& entryOf(Key const& key, std::shared_ptr<UMesh<float> const> const& mesh);
    void begin(Key const& key, std::shared_ptr<UMesh<float> const> mesh);
    void take(Key const& key, unsigned long request, std::optional<MeshFacts> const& facts);
    void dropDead();

    std::map<Key, Entry> m_entries;
    unsigned long m_lastRequest = 0;
    int m_running = 0;
    std::size_t m_nextDrop = 256;
    QThreadPool m_thread;
};
