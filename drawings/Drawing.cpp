// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawings/Drawing.h"

#include "drawings/PathBuilder.h"
#include "platform/jobs/Exceptions.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace Drawings {

namespace {

constexpr qint64 largestFile = 256 << 20;
/// Square millimetres; below it rounding is all there is.
constexpr double leastArea = 1e-4;

QString translated(char const* text)
{
    return QCoreApplication::translate("Drawings", text);
}

double areaOf(Path const& path)
{
    double sum = 0;
    Point const& a = path.points.front();
    for (std::size_t i = 1; i + 1 < path.points.size(); ++i) {
        Point const &p = path.points[i], &q = path.points[i + 1];
        sum += (p.X() - a.X()) * (q.Y() - a.Y()) - (q.X() - a.X()) * (p.Y() - a.Y());
    }
    return std::abs(sum) / 2;
}

double sizeOf(Path const& path)
{
    Extent const extent = extentOf(path);
    return extent.width() * extent.height();
}

QString placeText(Point const& p)
{
    return QStringLiteral("(%1, %2)").arg(p.X(), 0, 'g', 6).arg(p.Y(), 0, 'g', 6);
}

}  // namespace

Extent extentOf(Path const& path)
{
    Extent extent{path.points[0].X(), path.points[0].Y(), path.points[0].X(), path.points[0].Y()};
    for (Point const& p : path.points) {
        extent.lowX = std::min(extent.lowX, p.X());
        extent.lowY = std::min(extent.lowY, p.Y());
        extent.highX = std::max(extent.highX, p.X());
        extent.highY = std::max(extent.highY, p.Y());
    }
    return extent;
}

Unit unitOfName(std::string const& name)
{
    if (name == "mm")
        return 1.0;
    if (name == "cm")
        return 10.0;
    if (name == "in")
        return 25.4;
    if (name == "px")
        return 25.4 / 96;
    return {};
}

std::vector<Path> readPaths(QString const& file, Unit unit)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        refuse(translated(QT_TRANSLATE_NOOP("Drawings", "The drawing %1 cannot be read: %2."))
                   .arg(file, source.errorString()));
    QString const suffix = QFileInfo(file).suffix().toLower();
    try {
        if (source.size() > largestFile)
            refuse(translated(
                QT_TRANSLATE_NOOP("Drawings", "It is too large. Save the outline alone.")));
        if (suffix == QLatin1String("svg"))
            return svgPaths(source.readAll(), unit);
        if (suffix == QLatin1String("dxf"))
            return dxfPaths(source.readAll(), unit);
        refuse(translated(
            QT_TRANSLATE_NOOP("Drawings", "Only SVG and DXF are read. Save it as one of them.")));
    } catch (Mell::Exception const& reason) {
        refuse(translated(QT_TRANSLATE_NOOP("Drawings", "The drawing %1 cannot be used. %2"))
                   .arg(file, QString::fromStdString(reason.what())));
    }
}

Path const& chosenPath(std::vector<Path> const& paths, std::optional<std::size_t> number)
{
    if (paths.empty())
        refuse(translated(QT_TRANSLATE_NOOP(
            "Drawings",
            "The drawing has no path. Draw one, or turn texts and objects into paths first.")));
    if (number && (*number < 1 || *number > paths.size()))
        refuse(translated(
                   QT_TRANSLATE_NOOP("Drawings", "There is no path %1. Choose one from 1 to %2."))
                   .arg(*number)
                   .arg(paths.size()));
    std::size_t index = number.value_or(1) - 1;
    if (!number)
        index = std::size_t(
            std::max_element(paths.begin(), paths.end(),
                             [](Path const& a, Path const& b) { return sizeOf(a) < sizeOf(b); }) -
            paths.begin());
    Path const& path = paths[index];
    if (!path.isClosed)
        refuse(translated(QT_TRANSLATE_NOOP(
                              "Drawings",
                              "Path %1 is open: it begins at %2 and ends at %3. Close it in the "
                              "drawing, or choose another path by its number."))
                   .arg(index + 1)
                   .arg(placeText(path.points.front()), placeText(path.points.back())));
    if (path.points.size() < 3 || areaOf(path) < leastArea)
        refuse(translated(
                   QT_TRANSLATE_NOOP(
                       "Drawings", "Path %1 encloses nothing. Choose another path by its number."))
                   .arg(index + 1));
    return path;
}

}  // namespace Drawings
