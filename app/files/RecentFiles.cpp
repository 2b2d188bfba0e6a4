// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/RecentFiles.h"

#include "platform/ui/Settings.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

constexpr char key[] = "/Files/recent";

QSettings settings()
{
    return QSettings(g_AppSettingFormat, QSettings::UserScope, QCoreApplication::applicationName(),
                     getSettingName());
}

}  // namespace

QStringList RecentFiles::files() const
{
    QStringList files;
    for (QString const& file : settings().value(QLatin1String(key)).toStringList())
        if (QFileInfo(file).isAbsolute() && !files.contains(file) && files.size() < most)
            files.push_back(file);
    return files;
}

void RecentFiles::add(QString const& file)
{
    QString const absolute = QFileInfo(file).absoluteFilePath();
    QStringList all = files();
    all.removeAll(absolute);
    all.push_front(absolute);
    store(all.mid(0, most));
}

void RecentFiles::remove(QString const& file)
{
    QStringList all = files();
    all.removeAll(QFileInfo(file).absoluteFilePath());
    store(all);
}

void RecentFiles::clear()
{
    store({});
}

void RecentFiles::store(QStringList const& files)
{
    settings().setValue(QLatin1String(key), files);
    emit changed();
}
