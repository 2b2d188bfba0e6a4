// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/SectionZCut.h"
#include "tests/support/TestDocument.h"

#include <QEventLoop>
#include <QString>

/// One Z cut from start to end, and what it told.
class ZCutRun
{
public:
    ZCutRun() : cut(nullptr)
    {
        QObject::connect(&cut, &Freecut::SectionZCut::finished, &m_loop,
                         [this](int outcome, QString const& text) {
                             ++finishedCount;
                             code = outcome;
                             message = text;
                             m_loop.quit();
                         });
    }

    void cutAt(TestDocument& test, std::vector<Mesh::DocumentObject*> const& parts, float z)
    {
        cut.setDocument(test.document);
        cut.startZCut(parts, z);
        waitForTheEnd();
    }

    void cutOneByOne(TestDocument& test, std::vector<Mesh::DocumentObject*> const& parts,
                     std::vector<float> const& heights)
    {
        cut.setDocument(test.document);
        cut.startZCutonebyone(parts, heights);
        waitForTheEnd();
    }

    /// The new parts of a part that was cut.
    std::vector<Mesh::DocumentObject*> piecesOf(Mesh::DocumentObject* part) const
    {
        auto const found = cut.newParts().find(part);
        return found == cut.newParts().end() ? std::vector<Mesh::DocumentObject*>() : found->second;
    }

    Freecut::SectionZCut cut;
    int finishedCount = 0;
    int code = -99;
    QString message = "none";

private:
    void waitForTheEnd()
    {
        // A start that has nothing to do ends before it returns.
        if (finishedCount == 0)
            m_loop.exec();
    }

    QEventLoop m_loop;
};
