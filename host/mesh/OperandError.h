// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/FlawException.h"

#include <string>

/// A failure of an operation on two meshes for what is wrong with one of them.
class OperandError : public Mell::FlawException
{
public:
    /// place  that the sentence names, if it names one
    OperandError(bool isSecond, std::string const& sentence,
                 std::optional<UPoint3<float>> const& place)
        : Mell::FlawException(sentence, place, !isSecond), m_isSecond(isSecond)
    {}

    bool isSecond() const { return m_isSecond; }

private:
    bool m_isSecond;
};
