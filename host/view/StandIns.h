// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/Inbox.h"
#include "host/view/PartShape.h"

#include <QElapsedTimer>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <memory>
#include <vector>

struct StandIn;

class DeviceWork;

/// Decides in which pictures of a view large parts are drawn by a stand-in, and has those made.
///
/// A picture is coarse if the mouse has moved in the last fifth of a second, in the view or with
/// something that changes what the view shows, and the last exact picture took longer than a smooth
/// movement allows. The exact picture follows when the mouse rests. Where the parts together have
/// few triangles all pictures are exact.
///
/// Stand-ins are made on a thread of their own, and brought to the device in steps of a few
/// milliseconds; until then pictures are exact. One belongs to the shape, and so to all parts that
/// have it, and goes with it.
///
/// thread  the user interface thread
class StandIns : public QObject
{
    Q_OBJECT

public:
    enum class Use
    {
        /// As told above.
        WhenSlow,
        /// In all pictures while the mouse moves, however fast the exact ones are.
        Always,
        Never
    };

    explicit StandIns(DeviceWork& work);
    /// Waits for the stand-in at which the thread is.
    ~StandIns() override;

    void setUse(Use use) { m_use = use; }

    /// The mouse has moved, or what it drags.
    void moved();
    /// The same, if a button of the mouse is down: for what may change in other ways too.
    void movedIfDragged();
    /// As if the mouse had rested long enough.
    void rest();

    /// Before anything of a picture is painted.
    ///
    /// isPreparing  parts are on their way that will ask for a picture when they are there; until
    /// then pictures can be coarse as if the mouse moved
    void beginPicture(bool isPreparing);
    /// Whether the picture that has begun is coarse.
    bool isCoarse() const { return m_isCoarse; }

    /// Around the painting of the parts.
    void beginParts(DrawDevice& device);
    void endParts(DrawDevice& device);
    /// Draws a part coarsely, if that is possible and wanted. Of a part with edges the triangles
    /// are drawn alone.
    bool paint(DrawDevice& device, PaintedPart& part, QMatrix4x4 const& toClip,
               QMatrix4x4 const& toEye);

    /// Stand-ins that are being made or brought to the device.
    bool isWorking() const;

    /// The context goes.
    void releaseGL();

signals:
    /// The exact picture is due.
    void rested();

private:
    bool isLarge() const;
    bool isWanted(PartShape const& shape) const;
    void make(std::shared_ptr<PartShape> const& shape);
    void enterMade();
    void enter(std::weak_ptr<PartShape> const& shape, std::shared_ptr<StandIn const> made);
    void count(PaintedPart const& part);
    std::size_t allowedFor(PaintedPart const& part) const;

    DeviceWork& m_work;
    Use m_use = Use::WhenSlow;
    QTimer m_restTimer;
    bool m_isMoving = false;
    bool m_isSlow = false;
    bool m_isCoarse = false;
    bool m_isOwed = false;
    QElapsedTimer m_partsTime;
    /// Of all parts of a picture; the cost of a triangle is one, and more with edges.
    struct Load
    {
        std::size_t triangles = 0;
        std::size_t cost = 0;
    };
    Load m_load;
    Load m_loadNow;
    std::vector<std::shared_ptr<PartShape>> m_painted;
    int m_running = 0;
    struct Made
    {
        std::weak_ptr<PartShape> shape;
        std::shared_ptr<StandIn const> standIn;
    };
    Inbox<Made> m_made;
    QThreadPool m_thread;
};
