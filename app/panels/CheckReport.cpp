// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/CheckReport.h"

#include <QCoreApplication>
#include <QStringList>

#include <array>
#include <utility>

namespace {

using Counts = PartCheck::Counts;

struct ErrorKind
{
    std::size_t Counts::*count;
    char const* one;
    char const* many;
};

constexpr std::array<ErrorKind, 7> errorKinds = {{
    {&Counts::borderEdges, QT_TRANSLATE_NOOP("CheckReport", "1 open edge"),
     QT_TRANSLATE_NOOP("CheckReport", "%1 open edges")},
    {&Counts::nonManifoldEdges,
     QT_TRANSLATE_NOOP("CheckReport", "1 edge with more than two triangles"),
     QT_TRANSLATE_NOOP("CheckReport", "%1 edges with more than two triangles")},
    {&Counts::inconsistentEdges,
     QT_TRANSLATE_NOOP("CheckReport", "1 edge between triangles that face different ways"),
     QT_TRANSLATE_NOOP("CheckReport", "%1 edges between triangles that face different ways")},
    {&Counts::degenerateTriangles, QT_TRANSLATE_NOOP("CheckReport", "1 triangle without area"),
     QT_TRANSLATE_NOOP("CheckReport", "%1 triangles without area")},
    {&Counts::duplicateTriangles,
     QT_TRANSLATE_NOOP("CheckReport", "1 triangle that is there twice"),
     QT_TRANSLATE_NOOP("CheckReport", "%1 triangles that are there twice")},
    {&Counts::selfIntersections, QT_TRANSLATE_NOOP("CheckReport", "1 pair of triangles that cross"),
     QT_TRANSLATE_NOOP("CheckReport", "%1 pairs of triangles that cross")},
    {&Counts::misorientedShells, QT_TRANSLATE_NOOP("CheckReport", "1 shell that is inside out"),
     QT_TRANSLATE_NOOP("CheckReport", "%1 shells that are inside out")},
}};

QString translated(char const* text)
{
    return QCoreApplication::translate("CheckReport", text);
}

/// What a repair has taken away, kind by kind; kinds that grew count as none.
Counts mendedOf(PartCheck::Finding const& finding)
{
    Counts mended;
    for (ErrorKind const& kind : errorKinds) {
        std::size_t const before = finding.before.*kind.count;
        std::size_t const after = finding.after.*kind.count;
        mended.*kind.count = before > after ? before - after : 0;
    }
    return mended;
}

/// What the user can do about errors that a repair leaves.
QString adviceFor(Counts const& left)
{
    if (left.selfIntersections > 0)
        return translated(QT_TRANSLATE_NOOP(
            "CheckReport",
            "Shells that cross are no error for most printers; cut or unite them to be sure."));
    return translated(
        QT_TRANSLATE_NOOP("CheckReport", "Mend the rest in the program that the part comes from."));
}

QString repairOf(PartCheck::Finding const& finding)
{
    if (finding.before.total() == 0)
        return translated(QT_TRANSLATE_NOOP("CheckReport", "no errors, nothing to repair."));
    if (!finding.mended)
        return translated(QT_TRANSLATE_NOOP("CheckReport", "could not be repaired: %1. %2"))
            .arg(CheckReport::errorsInWords(finding.before), adviceFor(finding.before));
    QString const mended = translated(QT_TRANSLATE_NOOP("CheckReport", "mended: %1."))
                               .arg(CheckReport::errorsInWords(mendedOf(finding)));
    if (finding.after.total() == 0)
        return mended + QLatin1Char(' ') +
               translated(QT_TRANSLATE_NOOP("CheckReport", "No error is left."));
    return mended + QLatin1Char(' ') +
           translated(QT_TRANSLATE_NOOP("CheckReport", "Left: %1. %2"))
               .arg(CheckReport::errorsInWords(finding.after), adviceFor(finding.after));
}

QString checkOf(PartCheck::Finding const& finding)
{
    return finding.before.total() == 0
               ? translated(QT_TRANSLATE_NOOP("CheckReport", "no errors."))
               : CheckReport::errorsInWords(finding.before) + QLatin1Char('.');
}

template <typename Describe>
QString paragraphs(PartCheck::Findings const& findings, Describe const& describe)
{
    QStringList lines;
    for (PartCheck::Finding const& finding : findings)
        lines << QStringLiteral("%1: %2").arg(QString::fromStdString(finding.name),
                                              describe(finding));
    return lines.join(QLatin1Char('\n'));
}

}  // namespace

QString CheckReport::errorsInWords(PartCheck::Counts const& counts)
{
    QStringList words;
    for (ErrorKind const& kind : errorKinds)
        if (std::size_t const count = counts.*kind.count)
            words << (count == 1 ? translated(kind.one) : translated(kind.many).arg(count));
    return words.join(QStringLiteral(", "));
}

QString CheckReport::ofCheck(PartCheck::Findings const& findings)
{
    return paragraphs(findings, checkOf);
}

QString CheckReport::ofRepair(PartCheck::Findings const& findings)
{
    return paragraphs(findings, repairOf);
}
