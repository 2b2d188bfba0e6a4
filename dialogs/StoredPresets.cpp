// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/StoredPresets.h"

#include "platform/jobs/Exceptions.h"
#include "platform/ui/StoredSettings.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace Freecut::StoredPresets {

namespace {

constexpr char const* key = "/SectionCut/presets";

QJsonArray stored()
{
    QByteArray const text = storedValue(key, QString()).toString().toUtf8();
    return QJsonDocument::fromJson(text).array();
}

QString nameOf(QJsonValue const& preset)
{
    return preset.toObject().value(QLatin1String("name")).toString();
}

QJsonArray without(QString const& name)
{
    QJsonArray kept;
    for (QJsonValue const& preset : stored())
        if (nameOf(preset) != name)
            kept.append(preset);
    return kept;
}

void store(QJsonArray const& presets)
{
    QByteArray const text = QJsonDocument(presets).toJson(QJsonDocument::Compact);
    storeValue(key, QString::fromUtf8(text));
}

}  // namespace

std::vector<ConnectorPreset> all()
{
    std::vector<ConnectorPreset> presets;
    for (QJsonValue const& preset : stored())
        try {
            presets.push_back(ConnectorPreset::fromJson(preset.toObject()));
        } catch (Mell::Exception const&) {
            // Of another version.
        }
    std::sort(presets.begin(), presets.end(), [](auto const& a, auto const& b) {
        return QString::localeAwareCompare(a.name, b.name) < 0;
    });
    return presets;
}

void add(ConnectorPreset const& preset)
{
    QJsonArray presets = without(preset.name);
    presets.append(preset.toJson());
    store(presets);
}

void remove(QString const& name)
{
    store(without(name));
}

}  // namespace Freecut::StoredPresets
