// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/RecentFiles.h"

#include "platform/ui/StoredSettings.h"

#include <QFileInfo>

namespace {

constexpr char key[] = "/Files/recent";

}  // namespace

QStringList RecentFiles::files() const
{
    QStringList files;
    for (QString const& file : storedValue(QLatin1String(key)).toStringList())
        if (QFileInfo(file).isAbsolute() && !files.contains(file) && files.size() < most)
            files.push_back(file);
    return files;
}

void RecentFiles::addAll(QStringList const& added)
{
    QStringList all;
    for (QString const& file : added)
        all.push_back(QFileInfo(file).absoluteFilePath());
    all += files();
    all.removeDuplicates();
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
    storeValue(QLatin1String(key), files);
    emit changed();
}
