// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ShellSurvey.h"

#include "cutjobs/common/Bodies.h"

#include <QCoreApplication>
#include <QString>

#include <utility>

ShellSurvey::ShellSurvey(PartOfRun const& part, ConnectorProgress::Poll poll)
    : m_object(part.object),
      m_poll(std::move(poll)),
      m_plainLower(countShells(*part.plain.lower, m_poll)),
      m_plainUpper(countShells(*part.plain.upper, m_poll))
{}

void ShellSurvey::tellOf(Halves const& joined, CutRemarks& remarks) const
{
    auto const compare = [&](char const* text, MeshKernel const& half, std::size_t plain) {
        std::size_t const count = countShells(half, m_poll);
        if (count > plain)
            remarks.push_back({m_object,
                               CutRemark::Kind::PieceFallsApart,
                               QCoreApplication::translate("CutRemarks", text)
                                   .arg(count)
                                   .arg(plain)
                                   .toStdString(),
                               {}});
    };
    compare(QT_TRANSLATE_NOOP("CutRemarks",
                              "The lower piece consists of %1 shells; without "
                              "connectors it would be %2."),
            *joined.lower, m_plainLower);
    compare(QT_TRANSLATE_NOOP("CutRemarks",
                              "The upper piece consists of %1 shells; without "
                              "connectors it would be %2."),
            *joined.upper, m_plainUpper);
}
