// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ConnectorPreset.h"

#include "connectors/ConnectorLimits.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>
#include <QSet>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

namespace PinHole = ConnectorLimits::PinHole;
namespace LapJoint = ConnectorLimits::LapJoint;
using ConnectorLimits::Length;
using Kind = ConnectorPreset::Kind;

/// A length of a record.
template <typename Paras>
struct Field
{
    char const* key;
    float Paras::*value;
    Length const& limits;
};

Field<PinHoleParas> const pinFields[] = {
    {"radius", &PinHoleParas::radius, PinHole::radius},
    {"tolerance", &PinHoleParas::tolerance, PinHole::tolerance},
    {"height", &PinHoleParas::height, PinHole::height},
    {"sideDistance", &PinHoleParas::sidedistance, PinHole::sideDistance},
    {"topClearance", &PinHoleParas::topclearance, PinHole::topClearance},
    {"spacing", &PinHoleParas::spacing, PinHole::spacing},
    {"sideClearance", &PinHoleParas::sideclearance, PinHole::sideClearance},
    {"faceClearance", &PinHoleParas::faceclearance, PinHole::faceClearance},
};
Field<LapJointParas> const jointFields[] = {
    {"notchDepth", &LapJointParas::notchDepth, LapJoint::notchDepth},
    {"sideDistance", &LapJointParas::sideDistance, LapJoint::sideDistance},
    {"notchClearance", &LapJointParas::notchClearance, LapJoint::notchClearance},
    {"frontClearance", &LapJointParas::frontClearance, LapJoint::frontClearance},
    {"backClearance", &LapJointParas::backClearance, LapJoint::backClearance},
};

char const* const kindNames[] = {"pins", "holes", "lapJoint"};
char const* const contourNames[] = {"outer", "inner", "all"};

template <typename... Arguments>
[[noreturn]] void refuse(char const* text, Arguments const&... arguments)
{
    throw Mell::Exception(
        QCoreApplication::translate("ConnectorPreset", text).arg(arguments...).toStdString());
}

/// The double that has the same shortest text as the float: 0.1f gives 0.1.
double tidy(float value)
{
    char text[32];
    auto const end = std::to_chars(text, text + sizeof text, value).ptr;
    double result = 0;
    std::from_chars(text, end, result);
    return result;
}

template <typename Names>
int indexIn(Names const& names, QString const& key, QJsonValue const& value)
{
    int index = 0;
    for (char const* const name : names) {
        if (value.toString() == QLatin1String(name))
            return index;
        ++index;
    }
    QStringList all;
    for (char const* const name : names)
        all += QLatin1String(name);
    refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "\"%1\" must be one of: %2."), key,
           all.join(QStringLiteral(", ")));
}

bool boolIn(QJsonObject const& json, char const* key, bool otherwise)
{
    QJsonValue const value = json.value(QLatin1String(key));
    if (value.isUndefined())
        return otherwise;
    if (!value.isBool())
        refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "\"%1\" must be true or false."),
               QString::fromLatin1(key));
    return value.toBool();
}

void checkRange(char const* key, float value, double least, double largest)
{
    if (!(value >= float(least) && value <= float(largest)))
        refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "\"%1\" must be from %2 to %3 mm, but is %4."),
               QString::fromLatin1(key), QString::number(tidy(float(least))),
               QString::number(tidy(float(largest))), QString::number(tidy(value)));
}

template <typename Paras, std::size_t count>
void readLengths(Paras& paras, Field<Paras> const (&fields)[count], QJsonObject const& json)
{
    for (Field<Paras> const& field : fields) {
        QJsonValue const value = json.value(QLatin1String(field.key));
        if (value.isUndefined())
            continue;
        if (!value.isDouble())
            refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "\"%1\" must be a number of millimetres."),
                   QString::fromLatin1(field.key));
        paras.*field.value = float(value.toDouble());
        checkRange(field.key, paras.*field.value, field.limits.least, field.limits.largest);
    }
}

template <typename Paras, std::size_t count>
QSet<QString> keysOf(Field<Paras> const (&fields)[count])
{
    QSet<QString> keys;
    for (Field<Paras> const& field : fields)
        keys += QString::fromLatin1(field.key);
    return keys;
}

void refuseUnknown(QJsonObject const& json, QSet<QString> const& known)
{
    for (QString const& key : json.keys())
        if (!known.contains(key))
            refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "There is no value called \"%1\"."), key);
}

PinHoleParas pinsOf(QJsonObject const& json)
{
    refuseUnknown(json, keysOf(pinFields) + QSet<QString>{"besideContours", "keepClear"});
    PinHoleParas paras;
    readLengths(paras, pinFields, json);
    // What is not given agrees with what is.
    auto const has = [&](char const* key) { return json.contains(QLatin1String(key)); };
    double const spacing = PinHole::leastSpacing(paras.radius, paras.sideclearance);
    if (!has("tolerance"))
        paras.tolerance = std::min(paras.tolerance, paras.radius);
    if (!has("sideDistance"))
        paras.sidedistance = std::max(paras.sidedistance, paras.radius);
    if (!has("spacing"))
        paras.spacing = std::max(paras.spacing, float(spacing));
    checkRange("tolerance", paras.tolerance, PinHole::tolerance.least, paras.radius);
    checkRange("sideDistance", paras.sidedistance, paras.radius, PinHole::sideDistance.largest);
    checkRange("spacing", paras.spacing, spacing, PinHole::spacing.largest);
    paras.isSidedis = boolIn(json, "besideContours", PinHole::isSidedis.initial);
    paras.keepClear = boolIn(json, "keepClear", false);
    return paras;
}

LapJointParas jointOf(QJsonObject const& json)
{
    refuseUnknown(json, keysOf(jointFields) + QSet<QString>{"basedOn"});
    LapJointParas paras;
    readLengths(paras, jointFields, json);
    auto const limit = [&](char const* key, float LapJointParas::*value, float largest) {
        if (!json.contains(QLatin1String(key)))
            paras.*value = std::min(paras.*value, largest);
        checkRange(key, paras.*value, 0, largest);
    };
    limit("notchClearance", &LapJointParas::notchClearance, paras.sideDistance);
    limit("frontClearance", &LapJointParas::frontClearance, paras.notchDepth);
    limit("backClearance", &LapJointParas::backClearance, paras.notchDepth);
    if (QJsonValue const value = json.value(QLatin1String("basedOn")); !value.isUndefined())
        paras.basedOn = indexIn(contourNames, QStringLiteral("basedOn"), value);
    return paras;
}

template <typename Paras, std::size_t count>
QJsonObject lengthsOf(Paras const& paras, Field<Paras> const (&fields)[count])
{
    QJsonObject json;
    for (Field<Paras> const& field : fields)
        json[QLatin1String(field.key)] = tidy(paras.*field.value);
    return json;
}

QJsonObject recordIn(QJsonObject const& json, char const* key)
{
    QJsonValue const value = json.value(QLatin1String(key));
    if (!value.isObject())
        refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "\"%1\" must be a record in braces."),
               QString::fromLatin1(key));
    return value.toObject();
}

}  // namespace

QJsonObject ConnectorPreset::toJson() const
{
    QJsonObject json{{"name", name}, {"connector", QLatin1String(kindNames[int(kind)])}};
    if (pins) {
        QJsonObject record = lengthsOf(*pins, pinFields);
        record["besideContours"] = pins->isSidedis;
        record["keepClear"] = pins->keepClear;
        json["pins"] = record;
    }
    if (lapJoint) {
        QJsonObject record = lengthsOf(*lapJoint, jointFields);
        record["basedOn"] = QLatin1String(
            contourNames[lapJoint->basedOn == 0 || lapJoint->basedOn == 1 ? lapJoint->basedOn : 2]);
        json["lapJoint"] = record;
    }
    return json;
}

QByteArray ConnectorPreset::toText() const
{
    return QJsonDocument(toJson()).toJson();
}

ConnectorPreset ConnectorPreset::fromJson(QJsonObject const& json)
{
    refuseUnknown(json, {"name", "connector", "pins", "lapJoint"});
    ConnectorPreset preset;
    preset.name = json.value(QLatin1String("name")).toString();
    if (json.contains(QLatin1String("pins")))
        preset.pins = pinsOf(recordIn(json, "pins"));
    if (json.contains(QLatin1String("lapJoint")))
        preset.lapJoint = jointOf(recordIn(json, "lapJoint"));
    if (QJsonValue const kind = json.value(QLatin1String("connector")); !kind.isUndefined())
        preset.kind = Kind(indexIn(kindNames, QStringLiteral("connector"), kind));
    else
        preset.kind = preset.pins || !preset.lapJoint ? Kind::Pins : Kind::LapJoint;
    bool const isJoint = preset.kind == Kind::LapJoint;
    if (isJoint ? !preset.lapJoint : !preset.pins)
        refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "There are no values under \"%1\"."),
               isJoint ? QStringLiteral("lapJoint") : QStringLiteral("pins"));
    if (preset.pins)
        preset.pins->isPin = preset.kind != Kind::Holes;
    return preset;
}

ConnectorPreset ConnectorPreset::fromText(QByteArray const& text)
{
    QJsonParseError error;
    QJsonDocument const document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "It is not JSON: %1 at character %2."),
               error.errorString(), QString::number(error.offset + 1));
    if (!document.isObject())
        refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "The file must hold one record in %1."),
               QStringLiteral("{ }"));
    return fromJson(document.object());
}

ConnectorPreset ConnectorPreset::read(QString const& file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "The preset %1 cannot be read: %2."), file,
               source.errorString());
    try {
        return fromText(source.readAll());
    } catch (Mell::Exception const& reason) {
        refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "The preset %1 cannot be used. %2"), file,
               QString::fromStdString(reason.what()));
    }
}

void ConnectorPreset::write(QString const& file) const
{
    QSaveFile target(file);
    QByteArray const text = toText();
    if (!target.open(QIODevice::WriteOnly) || target.write(text) != text.size() || !target.commit())
        refuse(QT_TRANSLATE_NOOP("ConnectorPreset", "The preset cannot be written to %1: %2."),
               file, target.errorString());
}
