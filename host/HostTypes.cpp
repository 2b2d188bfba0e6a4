// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/view/MeshViewProvider.h"
#include "platform/document/DocumentObjectGroup.h"
#include "platform/document/GraphicObject.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/document/SupportDocumentObject.h"
#include "platform/ui/AppModule.h"
#include "platform/view/GLGraphicsItem.h"
#include "platform/view/GraphicViewProvider.h"
#include "platform/view/MeshGLView.h"
#include "platform/view/PointPickerMesh.h"

namespace {

// Enters the host's classes when the library is loaded, parents before their children. The class
// identifiers and property tables are constant-initialised, so the order of files does not matter.
struct HostTypes : Base::BaseClass
{
    HostTypes()
    {
        initSubclass(BaseClass::classTypeId, "Base::BaseClass", "", nullptr);
        Base::Persistence::init();
        Base::Property::init();
        PropertyMesh::init();
        Base::PropertyContainer::init();
        Base::DocumentObject::init();
        Base::GraphicObject::init();
        Mesh::DocumentObject::init();
        Support::DocumentObject::init();
        Mesh::DocumentObjectGroup::init();
        Base::Document::init();
        Mesh::Document::init();
        Base::ViewProvider::init();
        Base::GraphicViewProvider::init();
        Mesh::ViewProvider::init();
        Base::GLGraphicsItem::init();
        Base::GLView::init();
        Mesh::GLView::init();
        Base::AbstractMouseSelection::init();
        Base::RubberbandSelection::init();
        Base::RectangleSelection::init();
        Mesh::PointPickerMesh::init();
        AppModule::init();
    }
};

HostTypes const hostTypes;

}  // namespace
