// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/EditStep.h"

#include <exception>

EditStep::EditStep(Base::Document& document, char const* name)
    : m_document(document), m_exceptions(std::uncaught_exceptions())
{
    m_document.openTransaction(name);
}

EditStep::~EditStep()
{
    if (std::uncaught_exceptions() > m_exceptions) {
        m_document.abortTransaction();
        return;
    }
    std::size_t const before = m_document.undoNames().size();
    m_document.commitTransaction();
    if (m_document.undoNames().size() != before)
        m_document.setModified(true);
}
