// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PartQuery.h"

#include "messages/Attention.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellMessageBox.h"

#include <QCoreApplication>
#include <QPushButton>

#include <algorithm>

namespace Freecut::PartQuery {

namespace {

bool hasSupports(Mesh::DocumentObject const* part)
{
    return part->getClassName() == "Support::DocumentObject";
}

bool isNoPart(Mesh::DocumentObject const* object)
{
    return object->getClassName() != "Mesh::DocumentObject" && !hasSupports(object);
}

bool maySupportsGo()
{
    MellMessageBox question(MainWindow::getInstance());
    question.setText(QCoreApplication::translate(
        "DialogFreeCut",
        "One or more parts have support(s).The support(s) will be deleted. Do you "
        "want to continue your operation?"));
    question.setStandardButtons(QDialogButtonBox::Yes | QDialogButtonBox::Cancel);
    question.button(QDialogButtonBox::Yes)
        ->setText(QCoreApplication::translate("MellCommons", "Yes"));
    question.button(QDialogButtonBox::Cancel)
        ->setText(QCoreApplication::translate("MellCommons", "Cancel"));
    question.setDefaultButton(QDialogButtonBox::Yes);
    return question.exec() == QDialogButtonBox::Yes;
}

void tellThatThereIsNone(bool isOnlySelected)
{
    warnAttention(isOnlySelected
                      ? QCoreApplication::translate(
                            "MellCommons", "Please select at least 1 part in one document.")
                      : QCoreApplication::translate(
                            "MellCommons", "Please load at least 1 part in one document."));
}

}  // namespace

std::vector<Mesh::DocumentObject*> chosenParts(Base::Document const* document, bool isOnlySelected)
{
    if (!document || !document->getTypeId().isDerivedFrom(Mesh::Document::getClassTypeId()))
        return {};
    return isOnlySelected ? static_cast<Mesh::Document const*>(document)->getSelectedMeshObjects()
                          : document->getMeshObjects();
}

std::vector<Mesh::DocumentObject*> askForParts(Base::Document const* document, Choice const& choice)
{
    std::vector<Mesh::DocumentObject*> parts = chosenParts(document, choice.isOnlySelected);
    if (choice.removesOriginals && std::ranges::any_of(parts, hasSupports) && !maySupportsGo())
        return {};
    std::erase_if(parts, isNoPart);
    if (parts.empty())
        tellThatThereIsNone(choice.isOnlySelected);
    return parts;
}

}  // namespace Freecut::PartQuery
