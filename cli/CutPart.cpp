// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CutPart.h"

CutPart describePart(SourcePart const& source, MeshKernel const& kernel, bool measure)
{
    CutPart part;
    part.source = source.file;
    part.format = source.format;
    part.triangles = kernel.readMesh()->triangles.size();
    if (measure)
        part.facts = measureMesh(kernel);
    return part;
}
