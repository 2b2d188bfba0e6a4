// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/PlaceText.h"
#include "platform/services/Repair.h"

#include <QCoreApplication>

namespace Repair {

namespace {

/// How a flaw is told: to programs, and to persons when it was mended or left.
struct Wording
{
    char const* key;
    char const* mended;
    char const* left;
};

Wording wordingOf(Flaw flaw)
{
    switch (flaw) {
        case Flaw::degenerateTriangle:
            return {"degenerate_triangles_removed",
                    QT_TRANSLATE_NOOP("Services", "Triangles without area removed: %1"),
                    QT_TRANSLATE_NOOP("Services", "Triangles without area left: %1")};
        case Flaw::openSeam:
            return {"seams_joined", QT_TRANSLATE_NOOP("Services", "Seam vertices joined: %1"),
                    QT_TRANSLATE_NOOP("Services", "Seam vertices left: %1")};
        case Flaw::duplicateTriangle:
            return {"duplicates_removed",
                    QT_TRANSLATE_NOOP("Services", "Duplicate triangles removed: %1"),
                    QT_TRANSLATE_NOOP("Services", "Duplicate triangles left: %1")};
        case Flaw::turnedTriangle:
            return {"triangles_turned", QT_TRANSLATE_NOOP("Services", "Triangles turned: %1"),
                    QT_TRANSLATE_NOOP("Services", "Triangles that face the wrong way left: %1")};
        case Flaw::hole:
            return {"holes_closed", QT_TRANSLATE_NOOP("Services", "Holes closed: %1"),
                    QT_TRANSLATE_NOOP("Services", "Holes left: %1")};
        case Flaw::crossing:
            return {"crossings_resolved", QT_TRANSLATE_NOOP("Services", "Crossings resolved: %1"),
                    QT_TRANSLATE_NOOP("Services", "Crossings left: %1")};
        case Flaw::turnedShell:
            return {"shells_turned", QT_TRANSLATE_NOOP("Services", "Shells turned: %1"),
                    QT_TRANSLATE_NOOP("Services", "Shells that face the wrong way left: %1")};
        case Flaw::crowdedEdge:
            return {"crowded_edges",
                    QT_TRANSLATE_NOOP("Services", "Edges with more than two triangles mended: %1"),
                    QT_TRANSLATE_NOOP("Services", "Edges with more than two triangles left: %1")};
        case Flaw::inconsistentEdge:
            return {"inconsistent_edges",
                    QT_TRANSLATE_NOOP(
                        "Services", "Edges between triangles that face opposite sides mended: %1"),
                    QT_TRANSLATE_NOOP("Services",
                                      "Edges between triangles that face opposite sides left: %1")};
        case Flaw::superfluousShell:
            break;
    }
    return {"shells_dropped", QT_TRANSLATE_NOOP("Services", "Shells dropped: %1"),
            QT_TRANSLATE_NOOP("Services", "Superfluous shells left: %1")};
}

std::string lineOf(char const* wording, Report::Item const& item)
{
    QString line = QCoreApplication::translate("Services", wording).arg(qulonglong(item.count));
    if (!item.places.empty())
        line += withPlace(QCoreApplication::translate("Services", ", near (%1, %2, %3)"),
                          item.places.front());
    line += QStringLiteral(".");
    if (!item.reason.empty())
        line += QStringLiteral(" ") + QString::fromStdString(item.reason);
    return line.toStdString();
}

}  // namespace

std::size_t Report::countOf(Flaw flaw) const
{
    for (Item const& item : mended)
        if (item.flaw == flaw)
            return item.count;
    return 0;
}

char const* keyOf(Flaw flaw)
{
    return wordingOf(flaw).key;
}

std::vector<std::string> linesOf(Report const& report)
{
    std::vector<std::string> lines;
    for (Report::Item const& item : report.mended)
        lines.push_back(lineOf(wordingOf(item.flaw).mended, item));
    for (Report::Item const& item : report.left)
        lines.push_back(lineOf(wordingOf(item.flaw).left, item));
    return lines;
}

}  // namespace Repair
