// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/ProjectFile.h"
#include "platform/document/MeshDocument.h"

/// What a project file is to hold of a document: its parts and groups, in order. Kernels are shared
/// with the parts, so they have to stay as they are until the file is written. Objects that are
/// neither, such as tools, are left out.
///
/// thread  the user interface thread
/// cost    no geometry is copied
std::vector<Formats::ProjectObject> projectOf(Mesh::Document const& document);

/// Adds the objects of a project to a document, but for its views; the kernels become the parts'. Open a transaction
/// around it to make it undoable.
///
/// thread  the user interface thread
void addProject(Mesh::Document& document, std::vector<Formats::ProjectObject> objects);
