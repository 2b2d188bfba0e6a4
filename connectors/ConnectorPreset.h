// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/LapJointParas.h"
#include "connectors/PinHoleParas.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <optional>

/// Values of connectors under a name, to be kept and handed on as JSON:
///
///     {
///       "name": "PETG, 0.4 mm nozzle",
///       "connector": "pins",
///       "pins": {"radius": 2, "height": 5, "sideClearance": 0.15},
///       "lapJoint": {"notchDepth": 3, "basedOn": "outer"}
///     }
///
/// "connector" is "pins", "holes" or "lapJoint", and either of the records may be missing, as may
/// values in them, which then have their defaults. Lengths are millimetres.
struct ConnectorPreset
{
    enum class Kind
    {
        Pins,
        Holes,
        LapJoint,
    };

    QString name;
    Kind kind = Kind::Pins;
    std::optional<PinHoleParas> pins;
    std::optional<LapJointParas> lapJoint;

    QJsonObject toJson() const;
    /// The text of a file.
    QByteArray toText() const;

    // Both throw Mell::Exception that names what is wrong: a key that is not known, a value that is
    // no number or outside its limits, no record for the kind.

    static ConnectorPreset fromJson(QJsonObject const& json);
    static ConnectorPreset fromText(QByteArray const& text);

    /// Reads a file. Throws Mell::Exception that names the file.
    static ConnectorPreset read(QString const& file);
    /// Writes a file, in one go. Throws Mell::Exception that says why not.
    void write(QString const& file) const;
};
