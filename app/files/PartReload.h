// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/files/PartLoader.h"
#include "app/files/PartOrigins.h"
#include "platform/document/MeshDocument.h"

/// Puts what was read anew in the place of the parts that came from the same files, as one undo
/// step. Names, colours, groups and what the user did to the placement stay. Parts that were cut or
/// mended meanwhile are left alone, and so are those that their file has no more; what a file has
/// in addition is added.
///
/// returns  one sentence for each file that has fewer parts than before
/// thread   the user interface thread
QStringList putReloaded(Mesh::Document& document, LoadedFiles& loaded, PartOrigins& origins);
