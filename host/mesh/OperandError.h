// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/FlawException.h"

#include <QCoreApplication>

/// A failure of an operation on two meshes for what is wrong with one of them, which its text calls
/// the part or the tool.
class OperandError : public Mell::FlawException
{
public:
    /// finding  with a place marker for what the operand is called, as of QString::arg()
    /// place    that the finding names, if it names one
    OperandError(bool isSecond, QString const& finding, std::optional<UPoint3<float>> const& place)
        : Mell::FlawException(finding.arg(nameOf(isSecond)).toStdString(), place, !isSecond),
          m_isSecond(isSecond),
          m_text(finding)
    {}

    bool isSecond() const { return m_isSecond; }
    /// The finding as it was given.
    QString const& text() const { return m_text; }

private:
    static QString nameOf(bool isSecond)
    {
        return isSecond ? QCoreApplication::translate("Services", "The tool")
                        : QCoreApplication::translate("Services", "The part");
    }

    bool m_isSecond;
    QString m_text;
};
