// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PartRow.h"

#include "app/parts/EditStep.h"
#include "app/parts/FreeNames.h"
#include "app/parts/PartPlacement.h"

#include <QString>

#include <cmath>

bool PartRow::duplicate(Mesh::Document& document, PartEdits::Parts const& parts, Row const& row)
{
    if (parts.empty() || row.copies < 1 || row.copies > mostCopies || !std::isfinite(row.gapMm))
        return false;
    UBox3<float> const box = PartPlacement::boxOf(parts);
    double const size = box.Isnullptr() ? 0 : double(box.max[row.axis]) - double(box.min[row.axis]);
    EditStep const step(document, QT_TRANSLATE_NOOP("UndoRedoName", "Duplicate in a Row"));
    FreeNames names(document);
    document.clearSelection();
    for (int i = 1; i <= row.copies; ++i)
        for (Mesh::DocumentObject* const part : parts) {
            Mesh::DocumentObject* const copy = part->shallowCopy();
            document.addObject(copy, names.take(part->getName() + "_copy").c_str(), true);
            if (Mesh::DocumentObjectGroup* const group = part->getGroup())
                group->addObject(copy, nullptr);
            UVector3<float> offset;
            offset[row.axis] = float(i * (size + row.gapMm));
            copy->translate(offset, 0);
            bool const isLast = i == row.copies && part == parts.back();
            document.select(copy, true, isLast, false);
        }
    return true;
}
