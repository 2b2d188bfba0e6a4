// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/Exceptions.h"

#include <string>

/// A failure of an operation on two meshes for what is wrong with one of them.
class OperandError : public Mell::Exception
{
public:
    OperandError(bool isSecond, std::string const& sentence)
        : Mell::Exception(sentence), m_isSecond(isSecond)
    {}

    bool isSecond() const { return m_isSecond; }

private:
    bool m_isSecond;
};
