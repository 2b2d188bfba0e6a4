// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/document/DocumentObject.h"

#include "host/document/History.h"
#include "platform/document/Document.h"

#include <QUuid>

#include <algorithm>

namespace Base {

constinit Type DocumentObject::classTypeId;
constinit PropertyData DocumentObject::propertyData;

void DocumentObject::init()
{
    initSubclass(classTypeId, "Base::DocumentObject", "Base::PropertyContainer", nullptr);
    propertyData.parent = PropertyContainer::getPropertyDataPtr();
}

DocumentObject::DocumentObject() = default;

DocumentObject::~DocumentObject()
{
    // Whoever deletes an object that a document shows takes it out that way.
    if (m_document)
        static_cast<void>(m_document->detachObject(this).release());
}

Type DocumentObject::getTypeId() const
{
    return classTypeId;
}

std::string DocumentObject::getClassName() const
{
    return "Base::DocumentObject";
}

PropertyData const& DocumentObject::getPropertyData() const
{
    return propertyData;
}

History* DocumentObject::openHistory() const
{
    return m_document && m_document->m_history->isOpen() ? m_document->m_history.get() : nullptr;
}

std::string DocumentObject::getViewProviderName() const
{
    return {};
}

void DocumentObject::setDocument(Document* document)
{
    m_document = document;
}

void DocumentObject::setVisible(bool visible)
{
    if (visible == m_isVisible)
        return;
    if (History* const history = openHistory())
        history->recordVisible(entry());
    m_isVisible = visible;
    ViewProvider* const provider = m_document ? m_document->getViewProvider(this) : nullptr;
    if (provider && visible)
        provider->show();
    else if (provider)
        provider->hide();
    notifyChanged();
}

void DocumentObject::setSemiVisible(bool semiVisible)
{
    if (semiVisible == m_isSemiVisible)
        return;
    if (History* const history = openHistory())
        history->recordSemiVisible(entry());
    m_isSemiVisible = semiVisible;
    notifyChanged();
}

void DocumentObject::setColor(unsigned rgba)
{
    if (rgba == m_color)
        return;
    if (History* const history = openHistory())
        history->recordColor(entry());
    m_color = rgba;
    notifyChanged();
}

void DocumentObject::setColor(int red, int green, int blue, int alpha)
{
    unsigned rgba = 0;
    for (int const component : {red, green, blue, alpha})
        rgba = rgba << 8 | unsigned(std::clamp(component, 0, 255));
    setColor(rgba);
}

unsigned DocumentObject::getColor() const
{
    return m_color;
}

void DocumentObject::setName(std::string name)
{
    if (name == m_name)
        return;
    if (History* const history = openHistory())
        history->recordName(entry());
    m_name = std::move(name);
    notifyChanged();
}

void DocumentObject::onBeforeChange(Property* property)
{
    onBeforeChange(static_cast<Property const*>(property));
}

void DocumentObject::onChanged(Property* property)
{
    onChanged(static_cast<Property const*>(property));
    notifyChanged();
}

DocumentObject* DocumentObject::deepCopy() const
{
    return nullptr;
}

DocumentObject* DocumentObject::shallowCopy() const
{
    return nullptr;
}

void DocumentObject::setSelected(bool selected, bool notify, bool exclusive)
{
    if (m_document)
        m_document->select(this, selected, notify, exclusive);
}

bool DocumentObject::isSelected() const
{
    return m_document && m_document->isSelected(this);
}

void DocumentObject::setSemiSelected(bool semiSelected)
{
    m_isSemiSelected = semiSelected;
    notifyChanged();
}

void DocumentObject::copyFrom(DocumentObject* source)
{
    setName(source->getName());
    setColor(source->getColor());
    setVisible(source->isVisible());
}

bool DocumentObject::load(char const* file)
{
    return false;
}

void DocumentObject::freeMemory() {}

void DocumentObject::updateMemory() {}

std::chrono::system_clock::time_point DocumentObject::date() const
{
    return m_date;
}

void DocumentObject::setUuid(std::string uuid)
{
    m_uuid = std::move(uuid);
}

std::string DocumentObject::getUuid() const
{
    if (m_uuid.empty())
        m_uuid = QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
    return m_uuid;
}

void DocumentObject::setParentUuid(std::string uuid)
{
    m_parentUuid = std::move(uuid);
}

std::string DocumentObject::getParentUuid() const
{
    return m_parentUuid;
}

void DocumentObject::loadMatrixWithEditing(UMatrix4<float> const& matrix) {}

void DocumentObject::updateBoundingBox() {}

UBox3<float> DocumentObject::getBoundingBox() const
{
    return {};
}

void DocumentObject::notifyChanged()
{
    if (m_document)
        m_document->m_history->notifyChanged(this);
}

}  // namespace Base
