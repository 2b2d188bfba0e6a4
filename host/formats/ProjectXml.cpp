// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/ProjectXml.h"

#include <QString>
#include <QXmlStreamReader>

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace Formats {
namespace {

constexpr char projectNamespace[] = "urn:orbe:project:1";
constexpr int projectVersion = 1;

bool isWritable(QChar c)
{
    ushort const code = c.unicode();
    return code >= 0x20 ? code < 0xfffe : code == '\t' || code == '\n' || code == '\r';
}

std::string attribute(char const* name, std::string const& value)
{
    std::string text;
    if (!value.empty())
        text.append(" ").append(name).append("=\"").append(xmlEscaped(value)).append("\"");
    return text;
}

std::string hexText(unsigned rgba)
{
    std::array<char, 8> digits;
    auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), rgba, 16).ptr;
    return std::string(std::size_t(digits.data() + digits.size() - end), '0') +
           std::string(digits.data(), end);
}

template <typename Number>
std::string numberText(Number number)
{
    std::array<char, 32> digits;
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr};
}

template <typename Numbers>
std::string numbersText(std::vector<Numbers> const& rows)
{
    std::string text;
    for (Numbers const& row : rows)
        for (double const number : row)
            text.append(text.empty() ? "" : " ").append(numberText(number));
    return text;
}

/// Nothing if it is not as numbersText() writes it, each row with a vector of length one first.
template <typename Numbers>
std::vector<Numbers> vectorsFrom(std::string const& text)
{
    std::vector<Numbers> rows;
    char const* next = text.data();
    char const* const end = next + text.size();
    while (next != end) {
        Numbers row;
        for (double& number : row) {
            next += next != end && *next == ' ';
            auto const read = std::from_chars(next, end, number);
            if (read.ec != std::errc() || !std::isfinite(number))
                return {};
            next = read.ptr;
        }
        if (!(std::abs(std::hypot(row[0], row[1], row[2]) - 1) < 1e-6))
            return {};
        rows.push_back(row);
    }
    return rows;
}

/// Direction, up, middle, height, and 1 for a perspective or 0.
using CameraNumbers = std::array<double, 11>;

CameraNumbers numbersOf(ProjectCamera const& camera)
{
    auto const& [direction, up, middle, height, isPerspective] = camera;
    return {direction[0],
            direction[1],
            direction[2],
            up[0],
            up[1],
            up[2],
            middle[0],
            middle[1],
            middle[2],
            height,
            isPerspective ? 1.0 : 0.0};
}

/// Nothing for what no camera can be.
std::optional<ProjectCamera> cameraFrom(std::string const& text)
{
    auto const rows = vectorsFrom<CameraNumbers>(text);
    if (rows.size() != 1)
        return {};
    auto const& n = rows.front();
    ProjectCamera const camera{
        {n[0], n[1], n[2]}, {n[3], n[4], n[5]}, {n[6], n[7], n[8]}, n[9], n[10] != 0};
    bool const isUnit = std::abs(std::hypot(n[3], n[4], n[5]) - 1) < 1e-6;
    return isUnit && camera.height > 0 ? std::optional(camera) : std::nullopt;
}

std::string viewText(ProjectObject const& view)
{
    return " <view" + attribute("name", view.name) +
           attribute("camera", numbersText(std::vector{numbersOf(view.camera)})) + "/>\n";
}

std::string elementText(ProjectEntry const& entry)
{
    ProjectObject const& object = entry.object;
    if (object.kind == ProjectObject::Kind::View)
        return viewText(object);
    std::string text = object.kind == ProjectObject::Kind::Group ? " <group" : " <part";
    text += attribute("uuid", object.uuid) + attribute("name", object.name) +
            attribute("item", entry.item) + attribute("group", object.groupUuid) +
            attribute("source", object.parentUuid);
    if (!object.isVisible)
        text += object.isSemiVisible ? " visible=\"ghost\"" : " visible=\"no\"";
    else if (object.isSemiVisible)
        text += " visible=\"both\"";
    if (object.isSupport)
        text += " support=\"yes\"";
    if (object.color != 0)
        text += attribute("color", hexText(object.color));
    if (object.cutFamily != 0)
        text += attribute("family", numberText(object.cutFamily)) +
                attribute("cuts", numbersText(object.cutPlanes)) +
                attribute("ways", numbersText(object.cutWays));
    return text + "/>\n";
}

std::string textOf(QXmlStreamAttributes const& attributes, char const* name)
{
    return attributes.value(QLatin1String(name)).toString().toStdString();
}

ProjectEntry entryFrom(QXmlStreamAttributes const& attributes, ProjectObject::Kind kind)
{
    ProjectEntry entry;
    ProjectObject& object = entry.object;
    object.kind = kind;
    object.uuid = textOf(attributes, "uuid");
    object.name = textOf(attributes, "name");
    object.groupUuid = textOf(attributes, "group");
    object.parentUuid = textOf(attributes, "source");
    entry.item = textOf(attributes, "item");
    std::string const visible = textOf(attributes, "visible");
    object.isVisible = visible.empty() || visible == "both";
    object.isSemiVisible = visible == "ghost" || visible == "both";
    object.isSupport = textOf(attributes, "support") == "yes";
    std::string const color = textOf(attributes, "color");
    std::from_chars(color.data(), color.data() + color.size(), object.color, 16);
    std::string const family = textOf(attributes, "family");
    std::from_chars(family.data(), family.data() + family.size(), object.cutFamily);
    if (object.cutFamily != 0) {
        object.cutPlanes = vectorsFrom<std::array<double, 4>>(textOf(attributes, "cuts"));
        object.cutWays = vectorsFrom<std::array<double, 3>>(textOf(attributes, "ways"));
    }
    return entry;
}

void appendView(std::vector<ProjectEntry>& entries, QXmlStreamAttributes const& attributes)
{
    auto const camera = cameraFrom(textOf(attributes, "camera"));
    if (!camera)
        return;
    ProjectObject& view = entries.emplace_back().object;
    view.kind = ProjectObject::Kind::View;
    view.name = textOf(attributes, "name");
    view.camera = *camera;
}

void requireVersion(QXmlStreamAttributes const& attributes, std::filesystem::path const& path)
{
    if (attributes.value(QLatin1String("version")).toInt() > projectVersion)
        throw FileError(
            path,
            FileError::tr(
                "it was saved by a newer version of this program; update the program to open it."));
}

}  // namespace

std::vector<ProjectObject> completeObjects(std::vector<ProjectEntry> entries)
{
    std::vector<ProjectObject> objects;
    for (ProjectEntry& entry : entries) {
        bool const isPart = entry.object.kind == ProjectObject::Kind::Part;
        if (isPart && entry.item.empty())
            entry.object.kernel = std::make_shared<MeshKernel>();
        if (!isPart || entry.object.kernel)
            objects.push_back(std::move(entry.object));
    }
    return objects;
}

std::string xmlEscaped(std::string const& text)
{
    QString escaped;
    for (QChar const c : QString::fromStdString(text)) {
        if (!isWritable(c))
            continue;
        if (c < QChar(' '))
            escaped += QStringLiteral("&#%1;").arg(c.unicode());
        else
            escaped += QString(c).toHtmlEscaped();
    }
    return escaped.toStdString();
}

std::string projectXml(std::span<ProjectEntry const> entries)
{
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project xmlns=\"";
    text += projectNamespace;
    text += "\" version=\"" + std::to_string(projectVersion) + "\">\n";
    for (ProjectEntry const& entry : entries)
        text += elementText(entry);
    return text + "</project>\n";
}

std::vector<ProjectEntry> parseProjectXml(std::string const& text,
                                          std::filesystem::path const& path)
{
    std::vector<ProjectEntry> entries;
    QXmlStreamReader reader(QByteArray::fromRawData(text.data(), int(text.size())));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement ||
            reader.namespaceUri() != QLatin1String(projectNamespace))
            continue;
        if (reader.name() == QLatin1String("project"))
            requireVersion(reader.attributes(), path);
        else if (reader.name() == QLatin1String("part"))
            entries.push_back(entryFrom(reader.attributes(), ProjectObject::Kind::Part));
        else if (reader.name() == QLatin1String("group"))
            entries.push_back(entryFrom(reader.attributes(), ProjectObject::Kind::Group));
        else if (reader.name() == QLatin1String("view"))
            appendView(entries, reader.attributes());
    }
    if (reader.hasError())
        throw FileError(path, FileError::tr("its list of objects, %1, is damaged in line %2: %3")
                                  .arg(projectEntryName)
                                  .arg(reader.lineNumber())
                                  .arg(reader.errorString()));
    return entries;
}

}  // namespace Formats
