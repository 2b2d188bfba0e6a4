// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/view/BuildVolume.h"

#include "app/view/BuildVolumeChanges.h"
#include "app/view/ViewPreferences.h"
#include "platform/ui/Settings.h"
#include "platform/ui/StoredSettings.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStringList>

namespace {

QString const heightKey = QStringLiteral("/View/buildHeight");

bool isLength(double millimetres)
{
    return millimetres >= ViewPreferences::smallestPlateMm &&
           millimetres <= ViewPreferences::largestPlateMm;
}

double storedLength(QString const& key, double missing)
{
    bool isNumber = false;
    double const value = storedValue(key).toDouble(&isNumber);
    return isNumber && isLength(value) ? value : missing;
}

QString textOf(QString const& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}  // namespace

BuildVolume BuildVolume::stored()
{
    return {{},
            storedLength(QStringLiteral("/View/plateWidth"), ViewPreferences::defaultPlateMm),
            storedLength(QStringLiteral("/View/plateDepth"), ViewPreferences::defaultPlateMm),
            storedLength(heightKey, defaultHeightMm)};
}

void BuildVolume::storeHeight(double millimetres)
{
    storeValue(heightKey, millimetres);
    emit BuildVolumeChanges::instance().changed();
}

QString BuildVolume::ownFile()
{
    QSettings const settings(g_AppSettingFormat, QSettings::UserScope,
                             QCoreApplication::applicationName(), getSettingName());
    return QFileInfo(settings.fileName()).absolutePath() + QStringLiteral("/build-volumes.csv");
}

std::vector<BuildVolume> BuildVolume::known()
{
    std::vector<BuildVolume> volumes = read(textOf(QStringLiteral(":/data/build-volumes.csv")));
    std::vector<BuildVolume> const own = read(textOf(ownFile()));
    volumes.insert(volumes.end(), own.begin(), own.end());
    return volumes;
}

std::vector<BuildVolume> BuildVolume::read(QString const& text)
{
    std::vector<BuildVolume> volumes;
    for (QString const& line : text.split('\n')) {
        QStringList const fields = line.split(';');
        if (line.startsWith('#') || fields.size() != 4 || fields[0].trimmed().isEmpty())
            continue;
        BuildVolume const volume{fields[0].trimmed(), fields[1].toDouble(), fields[2].toDouble(),
                                 fields[3].toDouble()};
        if (isLength(volume.width) && isLength(volume.depth) && isLength(volume.height))
            volumes.push_back(volume);
    }
    return volumes;
}
