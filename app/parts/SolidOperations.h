// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/jobs/FlawException.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/services/CombiningNotes.h"

#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// What can be made of several solids, or of the bodies of one.
///
/// solids    read through their matrices, and only read; the first is the one from which is taken
///           away, or which is split
/// progress  percentages; what it throws passes
/// throws    OperandFlaw for what is wrong with one of them; Mell::Exception otherwise
/// thread    any
namespace SolidOperations {

enum class Operation
{
    Join,
    TakeAway,
    Intersect,
    Split,
    Shells,
    Merge
};

using Kernel = std::shared_ptr<MeshKernel>;
using Progress = std::function<void(int)>;

/// What is wrong with one of the solids.
class OperandFlaw : public Mell::FlawException
{
public:
    /// operand  its index; -1 if it may be any of them
    /// text     what is wrong, with a place marker for its name
    OperandFlaw(Mell::FlawException const& flaw, int operand, QString const& text)
        : FlawException(flaw), m_operand(operand), m_text(text)
    {}

    int operand() const { return m_operand; }
    /// What is wrong, of a solid that has this name.
    QString findingOf(QString const& name) const { return m_text.arg(name); }

private:
    int m_operand;
    QString m_text;
};

struct Piece
{
    Kernel kernel;
    /// Behind the name of the first solid; empty for what takes its place.
    std::string suffix;
};

/// Why there is nothing to be made.
enum class Nothing
{
    No,
    /// No two of them, or the first and no other, have a point inside in common.
    NotCommon,
    /// All of the first lies within the others.
    AllTaken,
    /// The first is one body.
    OneBody,
    /// It is more bodies than a document can well hold.
    TooMany
};

struct Result
{
    /// None without a piece; no piece is empty.
    std::vector<Piece> pieces;
    Nothing nothing = Nothing::No;
    /// How many bodies there are, where they were counted.
    std::size_t bodies = 0;
    /// What no step of it could mend.
    CombiningNotes notes;
};

constexpr std::size_t mostBodies = 1000;

/// Join      all that lies in any of them, without inner walls
/// TakeAway  what of the first lies in no other one
/// Intersect what lies in all of them
/// Split     of the first what lies in each of the others, in their order, and the rest; what an
///           earlier one has taken is not split again
/// Shells    the bodies of the first
/// Merge     all triangles as they are, in one mesh
Result apply(Operation operation, std::vector<Kernel> const& solids, Progress const& progress);

}  // namespace SolidOperations
