// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/Inbox.h"
#include "host/view/PreparedPart.h"

#include <QObject>
#include <QThreadPool>

#include <unordered_map>

/// Makes what a view needs of big meshes on a thread of its own, one after the other.
///
/// thread  the user interface thread
class PartPreparer : public QObject
{
    Q_OBJECT

public:
    using Mesh = std::shared_ptr<UMesh<float> const>;

    PartPreparer();
    /// Waits for the mesh at which the thread is; the others are left.
    ~PartPreparer() override;

    /// Whether a mesh is so small that its user is to prepare it at once. What is granted for one
    /// picture takes a twentieth of a second at most.
    bool takesAtOnce(Mesh const& mesh);
    /// Forgets what takesAtOnce() has granted, and what nobody has taken for the last picture.
    void beginPicture();

    /// What was made of the mesh, handed over once. If it was not asked for yet, or it is not
    /// ready, nothing; then prepared() follows, unless nobody but this has the mesh by then.
    std::shared_ptr<PreparedPart> take(Mesh const& mesh);
    /// The same, without asking.
    std::shared_ptr<PreparedPart> takeReady(Mesh const& mesh);
    /// The records have changed: what was made of them is of no use.
    void forget(UMesh<float> const* mesh);

    /// Meshes that were asked for and are not ready.
    bool isWorking() const { return m_running > 0; }
    /// Waits until all that was asked for is ready.
    void finish();

signals:
    /// A mesh is ready.
    void prepared();

private:
    struct Entry
    {
        std::weak_ptr<UMesh<float> const> mesh;
        unsigned long request = 0;
        bool wasOffered = false;
        std::shared_ptr<PreparedPart> result;
    };

    void begin(Mesh const& mesh, Entry& entry);
    void enterReady();
    void enter(UMesh<float> const* mesh, unsigned long request,
               std::shared_ptr<PreparedPart> result);

    std::unordered_map<UMesh<float> const*, Entry> m_entries;
    unsigned long m_lastRequest = 0;
    int m_running = 0;
    std::size_t m_granted = 0;
    struct Ready
    {
        UMesh<float> const* mesh;
        unsigned long request;
        std::shared_ptr<PreparedPart> result;
    };
    Inbox<Ready> m_ready;
    QThreadPool m_thread;
};
