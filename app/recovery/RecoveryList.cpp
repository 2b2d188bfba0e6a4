// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recovery/RecoveryList.h"

#include "host/formats/FileError.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

using Formats::FileError;
using Formats::ProjectObject;

constexpr int version = 1;
constexpr int matrixSize = 16;

/// Names may be any bytes; as Latin-1 each byte is a character of its own.
QString bytesAsText(std::string const& bytes)
{
    return QString::fromLatin1(bytes.data(), int(bytes.size()));
}

std::string bytesOf(QJsonValue const& value)
{
    return value.toString().toLatin1().toStdString();
}

QJsonArray matrixNumbers(UMatrix4<float> const& matrix)
{
    QJsonArray numbers;
    for (int i = 0; i < matrixSize; ++i)
        numbers.append(double(matrix.data()[i]));
    return numbers;
}

template <std::size_t Size>
using Rows = std::vector<std::array<double, Size>>;

template <std::size_t Size>
QJsonArray numbersOf(Rows<Size> const& rows)
{
    QJsonArray numbers;
    for (auto const& row : rows)
        for (double const number : row)
            numbers.append(number);
    return numbers;
}

/// What is left over at the end is passed over.
template <std::size_t Size>
void readRows(QJsonArray const& numbers, Rows<Size>& rows)
{
    for (int first = 0; first + int(Size) <= numbers.size(); first += int(Size)) {
        std::array<double, Size>& row = rows.emplace_back();
        for (std::size_t i = 0; i < Size; ++i)
            row[i] = numbers[first + int(i)].toDouble();
    }
}

QJsonObject viewOf(ProjectObject const& view)
{
    using Vectors = Rows<3>;
    return {
        {"view", bytesAsText(view.name)},
        {"camera", numbersOf(Vectors{view.camera.direction, view.camera.up, view.camera.middle})},
        {"height", view.camera.height},
        {"perspective", view.camera.isPerspective}};
}

/// Of what viewOf() made.
void readView(QJsonObject const& object, ProjectObject& view)
{
    Rows<3> vectors;
    readRows(object["camera"].toArray(), vectors);
    vectors.resize(3);
    view.kind = ProjectObject::Kind::View;
    view.name = bytesOf(object["view"]);
    view.camera = {vectors[0], vectors[1], vectors[2], object["height"].toDouble(),
                   object["perspective"].toBool()};
}

QJsonObject objectOf(RecoveryList::Entry const& entry)
{
    ProjectObject const& look = entry.look;
    if (look.kind == ProjectObject::Kind::View)
        return viewOf(look);
    QJsonObject object{{"uuid", bytesAsText(look.uuid)},
                       {"source", bytesAsText(look.parentUuid)},
                       {"group", bytesAsText(look.groupUuid)},
                       {"name", bytesAsText(look.name)},
                       {"visible", look.isVisible},
                       {"ghost", look.isSemiVisible},
                       {"color", double(look.color)},
                       {"support", look.isSupport}};
    if (look.kind == ProjectObject::Kind::Part) {
        object.insert("mesh", bytesAsText(entry.meshFile));
        object.insert("matrix", matrixNumbers(entry.matrix));
        if (look.cutFamily != 0) {
            object.insert("family", double(look.cutFamily));
            object.insert("cuts", numbersOf(look.cutPlanes));
            object.insert("ways", numbersOf(look.cutWays));
        }
    }
    return object;
}

/// Whether the name is that of a file in the same folder.
bool isPlainName(std::string const& name)
{
    return !name.empty() && name.find('/') == std::string::npos && name[0] != '.';
}

RecoveryList::Entry entryOf(QJsonObject const& object, std::filesystem::path const& path)
{
    RecoveryList::Entry entry;
    ProjectObject& look = entry.look;
    if (object.contains("view")) {
        readView(object, look);
        return entry;
    }
    look.uuid = bytesOf(object["uuid"]);
    look.parentUuid = bytesOf(object["source"]);
    look.groupUuid = bytesOf(object["group"]);
    look.name = bytesOf(object["name"]);
    look.isVisible = object["visible"].toBool();
    look.isSemiVisible = object["ghost"].toBool();
    look.color = unsigned(object["color"].toDouble());
    look.isSupport = object["support"].toBool();
    if (!object.contains("mesh")) {
        look.kind = ProjectObject::Kind::Group;
        return entry;
    }
    entry.meshFile = bytesOf(object["mesh"]);
    QJsonArray const numbers = object["matrix"].toArray();
    if (!isPlainName(entry.meshFile) || numbers.size() != matrixSize)
        throw FileError(path, FileError::tr("it is not whole, and cannot be read."));
    for (int i = 0; i < matrixSize; ++i)
        entry.matrix.data()[i] = float(numbers[i].toDouble());
    look.cutFamily = unsigned(object["family"].toDouble());
    readRows(object["cuts"].toArray(), look.cutPlanes);
    readRows(object["ways"].toArray(), look.cutWays);
    return entry;
}

}  // namespace

std::size_t RecoveryList::partCount() const
{
    return std::size_t(std::ranges::count_if(
        entries, [](Entry const& e) { return e.look.kind == ProjectObject::Kind::Part; }));
}

QString RecoveryList::title() const
{
    return projectFile.isEmpty() ? QCoreApplication::translate("DocumentFiles", "Untitled")
                                 : QFileInfo(projectFile).fileName();
}

QByteArray recoveryText(RecoveryList const& list)
{
    QJsonArray objects;
    for (RecoveryList::Entry const& entry : list.entries)
        objects.append(objectOf(entry));
    return QJsonDocument(QJsonObject{{"version", version},
                                     {"project", list.projectFile},
                                     {"time", list.time.toString(Qt::ISODateWithMs)},
                                     {"triangles", double(list.triangles)},
                                     {"objects", objects}})
        .toJson();
}

RecoveryList parseRecoveryText(QByteArray const& text, std::filesystem::path const& path)
{
    QJsonParseError error{};
    QJsonObject const root = QJsonDocument::fromJson(text, &error).object();
    if (error.error != QJsonParseError::NoError || !root["objects"].isArray())
        throw FileError(path, FileError::tr("it is not whole, and cannot be read."));
    if (root["version"].toInt() > version)
        throw FileError(
            path,
            FileError::tr(
                "it was saved by a newer version of this program; update the program to open it."));
    RecoveryList list;
    list.projectFile = root["project"].toString();
    list.time = QDateTime::fromString(root["time"].toString(), Qt::ISODateWithMs);
    list.triangles = std::size_t(std::max(root["triangles"].toDouble(), 0.0));
    for (QJsonValue const& value : root["objects"].toArray())
        list.entries.push_back(entryOf(value.toObject(), path));
    return list;
}
