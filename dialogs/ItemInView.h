// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/view/GLView.h"

#include <QPointer>

#include <memory>

namespace Freecut {

/// A mark that a dialog draws over a view: made when there is first something to show, and taken out
/// with its owner. The view may go before.
///
/// Item  a GLGraphicsItem
template <typename Item>
class ItemInView
{
public:
    ItemInView() = default;
    ~ItemInView() { clear(); }
    ItemInView(ItemInView const&) = delete;
    ItemInView& operator=(ItemInView const&) = delete;

    /// The view to draw in from now on; null for none. The item leaves the one before.
    void setView(Base::GLView* view)
    {
        if (m_view != view)
            clear();
        m_view = view;
    }
    Base::GLView* view() const { return m_view; }

    /// Null if nothing is shown.
    Item const* item() const { return m_item.get(); }

    /// Changes the item, and has the view drawn anew. Without a view it does nothing.
    template <typename Change>
    void show(Change const& change)
    {
        if (!m_view)
            return;
        if (!m_item) {
            m_item = std::make_unique<Item>(m_view);
            m_view->addGraphicsItem(m_item.get());
        }
        change(*m_item);
        m_view->redraw();
    }

    void clear()
    {
        if (!m_item)
            return;
        if (m_view)
            m_view->removeGraphicsItem(m_item.get());
        else
            m_item->setViewer(nullptr);
        m_item.reset();
        if (m_view)
            m_view->redraw();
    }

private:
    QPointer<Base::GLView> m_view;
    std::unique_ptr<Item> m_item;
};

}  // namespace Freecut
