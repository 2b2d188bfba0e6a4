// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/Inbox.h"
#include "host/view/PartShape.h"

#include <QElapsedTimer>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

struct StandIn;

class DeviceWork;

/// Decides in which pictures of a view large parts are drawn by a stand-in, and has those made.
///
/// A picture is coarse if the mouse has moved in the last fifth of a second, in the view or with
/// something that changes what the view shows, and the last exact picture took longer than a smooth
/// movement allows. The exact picture follows when the mouse rests. Where the parts together have
/// few triangles all pictures are exact. A picture on the screen that would take so long that the
/// window stops is coarse too, until the exact one has been drawn in steps (PictureSteps).
///
/// Stand-ins are made on a thread of their own, and brought to the device in steps of a few
/// milliseconds. One belongs to the shape, and so to all parts that have it, and goes with it.
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

    /// How the parts of a picture are painted.
    enum class Manner
    {
        Exact,
        Coarse,
        /// What is large and has no stand-in yet is left out.
        CoarseOrNot,
        /// Exactly, but not all of it now.
        InSteps
    };

    /// Before anything of a picture is painted: whether it is to be coarse for the movement's sake.
    ///
    /// isPreparing  parts are on their way that will ask for a picture when they are there; until
    /// then pictures can be coarse as if the mouse moved
    bool isCoarseDue(bool isPreparing) const;
    using Shapes = std::vector<std::shared_ptr<PartShape>>;
    /// False if a picture of these costs too little for steps however it is drawn.
    bool mayNeedSteps(Shapes const& shapes) const;
    /// An exact picture of this cost, as DrawTrace has it, might stop the window for too long.
    bool needsSteps(std::size_t cost) const;
    /// Has the stand-ins made that shapes lack, if the exact picture is known to be slow. Returns
    /// whether pictures can be coarse with what is there now.
    bool areReady(Shapes const& shapes);
    /// The parts of an exact picture took this long.
    void measured(double ms, std::size_t cost);
    bool isMeasured() const { return m_msPerCost.has_value(); }
    bool isMoving() const { return m_isMoving; }

    void setManner(Manner manner) { m_manner = manner; }
    /// Whether the last exact picture took longer than a smooth movement allows.
    bool isSlow() const { return isLarge() && m_isSlow; }
    /// Whether the picture that has begun is coarse.
    bool isCoarse() const { return m_manner == Manner::Coarse || m_manner == Manner::CoarseOrNot; }
    /// Whether what is shown is not the exact picture of what there is.
    void setOwed(bool isOwed) { m_isOwed = isOwed; }

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
    /// A stand-in is there.
    void arrived();

private:
    bool isLarge() const;
    bool isTimed() const { return isLarge() && m_manner == Manner::Exact; }
    bool isWanted(PartShape const& shape) const;
    bool isWorthIt() const;
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
    /// Of exact pictures; nothing before the first large one.
    std::optional<double> m_msPerCost;
    Manner m_manner = Manner::Exact;
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
