// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/OperandSoup.h"
#include "platform/jobs/Exceptions.h"

#include <string>

/// A boolean that is refused for what is wrong with one of its operands.
class OperandError : public Mell::Exception
{
public:
    OperandError(Operand operand, std::string const& sentence)
        : Mell::Exception(sentence), m_operand(operand)
    {}

    Operand operand() const { return m_operand; }

private:
    Operand m_operand;
};
