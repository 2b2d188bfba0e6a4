// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/MeshDocumentObject.h"

// A plain part's answers about supports, of which it has none.
namespace Mesh {

MeshKernel* DocumentObject::getSupportMesh() const
{
    return nullptr;
}

MeshKernel* DocumentObject::getSupportPlat() const
{
    return nullptr;
}

std::vector<UTriangle<float>*> DocumentObject::getSolidSupportTris() const
{
    return {};
}

std::vector<UTriangle<float>*> DocumentObject::getBasePlateTris() const
{
    return {};
}

float DocumentObject::getPlatSupHeight() const
{
    return 0;
}

void DocumentObject::getSupportVolumnAndArea(double& volume, double& area) const
{
    volume = 0;
    area = 0;
}

MeshKernel* DocumentObject::getSupportMeshDeepCopy() const
{
    return nullptr;
}

bool DocumentObject::translateCheck() const
{
    return true;
}

bool DocumentObject::rotateCheck() const
{
    return true;
}

bool DocumentObject::mirrorCheck() const
{
    return true;
}

bool DocumentObject::partSupportCheck() const
{
    return false;
}

void DocumentObject::removePartSupport() {}

bool DocumentObject::hasSupportCheck() const
{
    return false;
}

void DocumentObject::hideSupport() {}

void DocumentObject::showSupport() {}

UBox3<float> DocumentObject::getSupportBox() const
{
    return {};
}

void DocumentObject::setSupportBox(UBox3<float> const& box) {}

}  // namespace Mesh
