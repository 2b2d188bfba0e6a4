// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/Document.h"

/// One undo step, open from construction on. Without finish() it is taken back at the end of the
/// scope, so an edit that throws leaves the document as it was.
///
/// thread  the user interface thread
class DocumentStep
{
public:
    /// name  the step's name in the source language, to be translated in the context "UndoRedoName"
    DocumentStep(Base::Document& document, char const* name) : m_document(document)
    {
        m_document.openTransaction(name);
    }
    ~DocumentStep()
    {
        if (!m_isFinished)
            m_document.abortTransaction();
    }
    DocumentStep(DocumentStep const&) = delete;
    DocumentStep& operator=(DocumentStep const&) = delete;

    /// Makes the step undoable and the document modified.
    void finish()
    {
        m_document.setModified(true);
        m_document.commitTransaction();
        m_isFinished = true;
    }

private:
    Base::Document& m_document;
    bool m_isFinished = false;
};
