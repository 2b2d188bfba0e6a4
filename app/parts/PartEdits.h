// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

#include <string>
#include <vector>

/// What a user does to parts and groups, each as one named undo step. An edit that would change
/// nothing makes no step and returns false.
///
/// parts, objects  of the document, each once
/// thread          the user interface thread
namespace PartEdits {

using Parts = std::vector<Mesh::DocumentObject*>;
using Objects = std::vector<Base::DocumentObject*>;

/// The selected parts and groups, which all commands go by. A tool that is selected beside them is
/// its owner's matter.
Objects selectedObjects(Mesh::Document const& document);
/// The parts among objects and in the groups among them, each once.
Parts partsAmong(Objects const& objects);
/// The groups among objects, and the groups of the parts among them, each once.
std::vector<Mesh::DocumentObjectGroup*> groupsAround(Objects const& objects);

bool setVisible(Mesh::Document& document, Parts const& parts, bool visible);
bool showAll(Mesh::Document& document);
/// Shows parts and hides all others.
bool isolate(Mesh::Document& document, Parts const& parts);
/// Whether parts are what is shown, all of them and no other.
bool isAlone(Mesh::Document const& document, Parts const& parts);
/// The colour as 0xRRGGBBAA; 0 for the view's own choice.
bool setColor(Mesh::Document& document, Parts const& parts, unsigned rgba);
/// An empty name, or one of blanks only, is refused; blanks at the ends are cut off.
bool rename(Mesh::Document& document, Base::DocumentObject& object, std::string const& name);

/// Puts parts into a new group, whose name begins with the given one; groups that lose their last
/// part thereby go.
bool group(Mesh::Document& document, Parts const& parts, std::string const& baseName);
/// Dissolves groups; their parts stay.
bool ungroup(Mesh::Document& document, std::vector<Mesh::DocumentObjectGroup*> const& groups);
/// Puts parts into a group, or with null out of all groups; groups that lose their last part go.
bool moveToGroup(Mesh::Document& document, Parts const& parts, Mesh::DocumentObjectGroup* group);

/// Removes parts and groups, groups with all their parts; groups that lose their last part go too.
/// Other objects, such as tools, stay.
bool remove(Mesh::Document& document, Objects const& objects);
/// The same as part of a step that is open. There are only parts and groups among the objects.
void removeInStep(Mesh::Document& document, Objects const& objects);
/// Makes a copy of each part in the part's group, beside the originals in x, and selects the
/// copies. They share the originals' meshes.
bool duplicate(Mesh::Document& document, Parts const& parts);

}  // namespace PartEdits
