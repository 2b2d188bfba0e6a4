// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/Inbox.h"
#include "host/view/PreparedPart.h"

#include <QObject>
#include <QThreadPool>

#include <functional>
#include <memory>
#include <unordered_map>

/// Makes what a view needs of big meshes on a thread of its own, one after the other.
///
/// thread  the user interface thread
class PartPreparer : public QObject
{
    Q_OBJECT

public:
    using Mesh = std::shared_ptr<UMesh<float> const>;

    /// How a mesh is prepared, on the thread of this; may throw.
    using Make = std::function<std::shared_ptr<PreparedPart>(Mesh const&)>;

    PartPreparer();
    explicit PartPreparer(Make make);
    /// Waits for the mesh at which the thread is; the others are left.
    ~PartPreparer() override;

    /// Whether a mesh is so small that its user is to prepare it at once. What is granted for one
    /// picture takes a twentieth of a second at most.
    bool takesAtOnce(Mesh const& mesh);
    /// Forgets what takesAtOnce() has granted, and what nobody has taken for the last picture.
    void beginPicture();

    /// What was made of the mesh, handed over once. If it was not asked for yet, or it is not
    /// ready, nothing; then prepared() follows, unless nobody but this has the mesh by then. What has
    /// failed is not tried again until its user has left it out of a picture.
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
    /// A mesh is ready, or came to nothing.
    void prepared();
    /// A mesh came to nothing, for want of memory.
    void failed();

private:
    struct Entry
    {
        std::weak_ptr<UMesh<float> const> mesh;
        unsigned long request = 0;
        bool wasOffered = false;
        bool hasFailed = false;
        std::shared_ptr<PreparedPart> result;
    };
    struct Ready
    {
        UMesh<float> const* mesh;
        unsigned long request;
        bool hasFailed;
        std::shared_ptr<PreparedPart> result;
    };

    Ready make(Mesh mesh, unsigned long request) const;
    void begin(Mesh const& mesh, Entry& entry);
    void enterReady();
    void enter(Ready ready);

    Make m_make;
    std::unordered_map<UMesh<float> const*, Entry> m_entries;
    unsigned long m_lastRequest = 0;
    int m_running = 0;
    std::size_t m_granted = 0;
    Inbox<Ready> m_ready;
    QThreadPool m_thread;
};
