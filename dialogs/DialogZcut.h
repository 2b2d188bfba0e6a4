// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/ui/DialogWidgetOneOff.h"

#include <vector>

class DialogWidgetGroup;
class PushButtonAnimate;

namespace Mesh {
class DocumentObject;
}

namespace Freecut {

/// The frame of a page of parameters for the cut at a height: a group that another module fills,
/// and a button. It starts nothing; the cut itself works without a dialog.
class DialogZcut : public DialogWidgetOneOff
{
    Q_OBJECT

public:
    explicit DialogZcut(QWidget* parent);

    /// For DialogWindowManager.
    static void* create(QWidget* parent);

    /// None.
    std::vector<Mesh::DocumentObject*> getObjects() const { return {}; }

    // These do nothing.

    void setDocument(Base::Document* document) override;
    void retranslate() override;

private:
    void setupUi();

    DialogWidgetGroup* m_parameters;
    PushButtonAnimate* m_cut;
};

}  // namespace Freecut
