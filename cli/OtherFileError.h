// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Errors.h"

#include <string>
#include <utility>

/// The cut has failed for what is wrong with another file than the one that is cut.
class OtherFileError : public CutError
{
public:
    /// label  what to call that file to a person
    OtherFileError(std::string label, std::string const& text)
        : CutError(text), m_label(std::move(label))
    {}

    std::string const& label() const { return m_label; }

private:
    std::string m_label;
};
