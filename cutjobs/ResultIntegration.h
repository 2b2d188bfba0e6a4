// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/common/CutResultMap.h"
#include "platform/document/CutMemory.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Base {
class Document;
}

/// What differs between the front objects when pieces become parts of the document.
struct IntegrationRules
{
    enum class Naming
    {
        /// One piece: the source's name and "(cut)", unique or not. Several: unique, numbered
        /// names.
        CutSuffix,
        /// Unique names, for several pieces numbered ones.
        Unique,
        /// The source's name for every piece.
        SourceName,
    };

    char const* transactionName = "Section Cut";
    bool undoable = true;
    /// Marks the document as modified before the transaction opens, besides at its end.
    bool marksModifiedFirst = true;
    Naming naming = Naming::CutSuffix;
    bool removesSources = false;
    /// Pieces go into the source's group, and a source leaves its group before it is removed.
    bool keepsGroup = false;
    bool selectsPieces = false;
    /// Brings the counts of the meshes up to date.
    bool writesCounts = false;
    // What two pieces of one part remember of the cut.

    /// The planes of a plane cut by source part.
    std::map<Mesh::DocumentObject*, Mesh::CutFace> planes = {};
    /// Of a cut by a drawn shape, whose inner pieces come first: the direction of its edges towards
    /// where it was drawn from.
    std::optional<UVector3<double>> shapeDirection = {};
};

/// Turns the pieces of a cut into parts of a document, in one undoable step.
///
/// Between begin() and end() the front object closes the cut in its own way. User interface thread.
class ResultIntegration
{
public:
    /// Source part to its new parts, in the order of the pieces.
    using PartMap = std::map<Mesh::DocumentObject*, std::vector<Mesh::DocumentObject*>>;

    ResultIntegration(Base::Document* document, IntegrationRules const& rules);

    /// Opens the transaction, adds a part for each piece and then takes the sources out if the
    /// rules say so. The geometry moves: the pieces' meshes are empty afterwards.
    ///
    /// pieces  sources that are in the document, each with at least one piece
    PartMap begin(CutResultMap const& pieces);

    /// Marks the document as modified and commits, if the cut is undoable.
    void end();

private:
    Mesh::DocumentObject* addPart(Mesh::DocumentObject* source, MeshKernel& piece, bool isOnly);
    std::string nameOf(std::string const& base, bool isOnly) const;
    void removeSource(Mesh::DocumentObject* source);
    void rememberCut(PartMap const& parts) const;

    Base::Document* m_document;
    IntegrationRules m_rules;
};
