// SPDX-License-Identifier: GPL-3.0-or-later
// A small module: one command, which tells the log how many vertices the parts of the document have.
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/document/TypeEntry.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/mesh/MeshKernel.h"
#include "platform/mesh/PropertyMesh.h"
#include "platform/ui/AppModule.h"
#include "platform/ui/Application.h"
#include "platform/ui/Command.h"
#include "platform/ui/CommandManager.h"

#include <QtGlobal>

#include <cstddef>
#include <string>

namespace {

class CmdCountVertices : public Base::Command
{
public:
    CmdCountVertices() : Base::Command("VertexCount_Count")
    {
        m_menuText = "Count Vertices";
        m_toolTipText = "Tell the log how many vertices the parts have";
    }

    bool isActive() override { return Application::Instance->activeDocument() != nullptr; }

    void activated(int) override
    {
        auto const* const document =
            dynamic_cast<Mesh::Document*>(Application::Instance->activeDocument());
        std::size_t count = 0;
        if (document)
            for (Mesh::DocumentObject* const part : document->getPartList())
                count += part->meshProperty->getMesh()->readMesh()->vertices.size();
        Base::ConsoleSingleton::Instance().Log(std::to_string(count) + " vertices");
    }
};

/// Named like the library, so that the host finds it.
class VertexCount : public Base::TypeEntry<VertexCount, AppModule>
{
public:
    static constexpr char const* typeName = "VertexCount";

    bool createModule() override { return true; }
    bool finishModule() override { return true; }
    bool deleteModule(std::string) override { return true; }
};

}  // namespace

extern "C" Q_DECL_EXPORT void initDLLModule()
{
    VertexCount::init();
    Application::Instance->commandManager().addCommand(new CmdCountVertices);
}
