// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/Measuring.h"

#include <QObject>
#include <QThreadPool>

#include <stop_token>

/// Works out wall thicknesses in the background; only the place asked for last counts, and work on
/// any other is given up.
///
/// thread  the user interface thread
class WallProbe : public QObject
{
    Q_OBJECT

public:
    WallProbe();
    ~WallProbe() override;

    void ask(MeshKernel const& part, Measuring::SurfacePoint const& at);
    /// What has been asked is not wanted any more.
    void forget();

signals:
    /// hasWall  false where the part is open behind the place
    void found(bool hasWall, double thickness);

private:
    std::stop_source m_unwanted;
    QThreadPool m_thread;
};
