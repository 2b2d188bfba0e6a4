// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/GraphicObject.h"
#include "platform/view/ViewProvider.h"

#include <memory>
#include <vector>

namespace Base {

/// An object's place in its document. Documents, selections and undo steps refer to objects by
/// their entries, so an object that is detached leaves no dangling pointer behind: its entry is
/// empty.
class DocumentEntry
{
public:
    std::unique_ptr<DocumentObject> object;
    std::unique_ptr<ViewProvider> provider;
    /// The document's order. It is given once, so an object that comes back finds its place
    /// whatever happened meanwhile.
    unsigned long key = 0;
    bool isPresent = false;

    /// A tool belongs to whoever added it. Undo steps do not hold it, and what deselects parts
    /// leaves it selected.
    bool isTool() const { return dynamic_cast<GraphicObject const*>(object.get()); }
};

/// The entries of tools, or of what is none, in their order.
inline std::vector<std::shared_ptr<DocumentEntry>> toolsAmong(
    std::vector<std::shared_ptr<DocumentEntry>> entries, bool wanted = true)
{
    std::erase_if(entries, [wanted](auto const& entry) { return entry->isTool() != wanted; });
    return entries;
}

}  // namespace Base
