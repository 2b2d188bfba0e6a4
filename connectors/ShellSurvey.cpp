// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/ShellSurvey.h"

#include "cutjobs/common/Bodies.h"

#include <QCoreApplication>
#include <QString>

#include <utility>

ShellSurvey::ShellSurvey(Mesh::DocumentObject* object, ConnectorProgress::Poll poll)
    : m_object(object), m_poll(std::move(poll))
{}

void ShellSurvey::lookAt(Half which, MeshKernel const& half)
{
    m_plain[which] = countShells(half, m_poll);
}

void ShellSurvey::tellOf(Halves const& joined, CutRemarks& remarks) const
{
    auto const compare = [&](char const* text, MeshKernel const& half, Half which) {
        if (!m_plain[which])
            return;
        std::size_t const plain = *m_plain[which], count = countShells(half, m_poll);
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
            *joined.lower, lower);
    compare(QT_TRANSLATE_NOOP("CutRemarks",
                              "The upper piece consists of %1 shells; without "
                              "connectors it would be %2."),
            *joined.upper, upper);
}
