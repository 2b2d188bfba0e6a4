// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recovery/RecoveryState.h"

#include "host/document/DocumentProject.h"

RecoveryState recoveryStateOf(Mesh::Document const& document, QString const& projectFile)
{
    RecoveryState state{projectFile, QDateTime::currentDateTime(), {}};
    for (Formats::ProjectObject& object : projectOf(document)) {
        RecoveryState::Object taken;
        if (std::shared_ptr<MeshKernel> const kernel = std::move(object.kernel)) {
            taken.mesh = kernel->readMesh();
            taken.matrix = kernel->getMatrix();
        }
        taken.look = std::move(object);
        state.objects.push_back(std::move(taken));
    }
    return state;
}
