// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

/// Tells all who show whether parts fit that the build volume is another one.
///
/// thread  the user interface thread
class BuildVolumeChanges : public QObject
{
    Q_OBJECT

public:
    static BuildVolumeChanges& instance();

signals:
    void changed();

private:
    BuildVolumeChanges() = default;
};
