// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/PartCombination.h"

namespace Base {
class GLView;
}

/// Combines the selected parts, and parts one into several, as the user asks: asks back what is not
/// clear from the selection, and tells why nothing has come of it, with the ways out.
///
/// thread  the user interface thread
class PartCombiner : public QObject
{
    Q_OBJECT

public:
    using Operation = PartCombination::Operation;

    /// view  in which places are shown; becomes the parent
    explicit PartCombiner(Base::GLView& view);

    /// The selected parts, and those of the selected groups, in the order in which they were
    /// selected.
    static std::vector<Mesh::DocumentObject*> chosen();
    /// Whether it is an operation on so many parts.
    static bool canTake(Operation operation, std::size_t parts);

    /// Returns while the job runs. With another number of parts, or while another job runs, it does nothing.
    void combine(Operation operation);
    /// At once.
    void duplicateInRow();

private:
    bool askWhatStays(PartCombination::Task& task) const;
    void finish(PartCombination::Report const& report);
    void tellFlaws(PartCombination::Report const& report) const;
    void tellNothing(PartCombination::Report const& report) const;
    void tellFailure(PartCombination::Report const& report);

    Base::GLView& m_view;
    PartCombination m_job;
};
