// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

/// The files that were opened or saved last, kept in the settings ("/Files/recent"), the newest
/// first.
///
/// thread  the user interface thread
class RecentFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int most = 10;

    using QObject::QObject;

    /// Absolute paths. What the settings hold beyond the limit, twice, or without sense is left
    /// out; files are not looked for.
    QStringList files() const;

    /// Puts a file in front.
    void add(QString const& file) { addAll({file}); }
    /// Puts files in front, the first of them foremost. The settings are written once, which waits
    /// for the disk.
    void addAll(QStringList const& added);
    void remove(QString const& file);
    void clear();

signals:
    void changed();

private:
    void store(QStringList const& files);
};
