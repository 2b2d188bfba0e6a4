// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/Document.h"
#include "platform/document/DocumentObject.h"

#include <string>
#include <unordered_set>

/// Names that no object of a document bears, for many new objects at once.
class FreeNames
{
public:
    explicit FreeNames(Base::Document const& document)
    {
        for (Base::DocumentObject const* const object : document.getObjectArray())
            m_taken.insert(object->getName());
    }

    /// The wanted name, or that with the first number that makes it free. It is taken now.
    std::string take(std::string const& wanted)
    {
        std::string name = wanted;
        for (int number = 1; !m_taken.insert(name).second; ++number)
            name = wanted + std::to_string(number);
        return name;
    }

private:
    std::unordered_set<std::string> m_taken;
};
