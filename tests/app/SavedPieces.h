// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/app/AppWindow.h"

#include <cstring>
#include <fstream>

/// Exports where a test says, and answers else as the others do.
class ExportAnswers : public ScriptedAnswers
{
public:
    ExportAnswers(Script& script, ExportPlan const& plan) : ScriptedAnswers(script), m_plan(plan) {}
    std::optional<ExportPlan> exportPlan(ExportOffer const&) override { return m_plan; }

private:
    ExportPlan m_plan;
};

/// A binary STL file, read by nothing that the program has.
inline Soup readStl(QString const& path)
{
    std::ifstream file(path.toStdString(), std::ios::binary);
    std::vector<char> const bytes{std::istreambuf_iterator<char>(file), {}};
    Soup soup;
    for (std::size_t at = 84; at + 50 <= bytes.size(); at += 50) {
        float c[9];
        std::memcpy(c, bytes.data() + at + 12, sizeof c);
        auto const a = soup.add({c[0], c[1], c[2]});
        soup.add({c[3], c[4], c[5]});
        soup.add({c[6], c[7], c[8]});
        soup.add(a, a + 1, a + 2);
    }
    soup.joinPoints();
    return soup;
}

/// Exports all parts of a document as the user would, and reads the files.
inline std::vector<Soup> savedParts(Mesh::Document const& document, ScriptedAnswers::Script& script,
                                    QTemporaryDir const& folder)
{
    for (Mesh::DocumentObject* const part : document.getMeshObjects())
        part->setVisible(true);
    DocumentFiles files(
        std::make_unique<ExportAnswers>(script, ExportPlan{folder.path(), "stl", true}));
    files.exportParts(false);
    waitUntil([&] { return !files.isWorking(); });
    std::vector<Soup> pieces;
    for (Mesh::DocumentObject const* const part : document.getMeshObjects())
        pieces.push_back(
            readStl(folder.filePath(QString::fromStdString(part->getName() + ".stl"))));
    return pieces;
}
