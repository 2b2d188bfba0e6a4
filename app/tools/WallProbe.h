// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/Measuring.h"

#include <QObject>
#include <QThreadPool>

/// Works out wall thicknesses in the background, one place after the other; only the place asked for
/// last counts.
///
/// thread  the user interface thread
class WallProbe : public QObject
{
    Q_OBJECT

public:
    WallProbe();
    /// Waits for the place at which the thread is.
    ~WallProbe() override;

    void ask(MeshKernel const& part, Measuring::SurfacePoint const& at);
    /// What has been asked is not wanted any more.
    void forget() { ++m_number; }

signals:
    /// hasWall  false where the part is open behind the place
    void found(bool hasWall, double thickness);

private:
    int m_number = 0;
    QThreadPool m_thread;
};
