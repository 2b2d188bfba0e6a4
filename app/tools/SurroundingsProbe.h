// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/Surroundings.h"

#include <QObject>
#include <QThreadPool>

#include <map>

/// Finds the faces and edges at places in the background.
///
/// thread  the user interface thread
class SurroundingsProbe : public QObject
{
    Q_OBJECT

public:
    SurroundingsProbe();
    /// Waits for the place at which the thread is.
    ~SurroundingsProbe() override;

    /// number  of the place, by which it is told of
    /// reach   how far an edge may be from it, in millimetres
    void ask(int number, MeshKernel const& part, Measuring::SurfacePoint const& at, double reach);
    /// Forgets all places.
    void clear();

    /// What is known of a place; null if nothing is yet.
    Measuring::Surroundings const* at(int number) const;

signals:
    /// More is known than before.
    void found();

private:
    void enter(int round, int number, Measuring::Surroundings surroundings);

    int m_round = 0;
    std::map<int, Measuring::Surroundings> m_found;
    QThreadPool m_thread;
};
