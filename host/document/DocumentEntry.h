// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/document/DocumentObject.h"
#include "platform/view/ViewProvider.h"

#include <memory>

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
};

}  // namespace Base
