// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/Document.h"

/// One undo step of a document, committed when this goes, or put back if that is by an exception.
/// The document counts as modified if the step changed anything.
class EditStep
{
public:
    /// name  the plain text; shown translated in the context "UndoRedoName"
    EditStep(Base::Document& document, char const* name);
    ~EditStep();
    EditStep(EditStep const&) = delete;
    EditStep& operator=(EditStep const&) = delete;

private:
    Base::Document& m_document;
    int m_exceptions;
};
