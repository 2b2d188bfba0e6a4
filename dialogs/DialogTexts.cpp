// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DialogTexts.h"

#include <QCoreApplication>

#include <utility>

namespace Freecut {

void DialogTexts::add(Setter setter, char const* context, char const* source, char const* tag)
{
    m_entries.push_back({std::move(setter), context, source, tag});
    m_entries.back().set();
}

void DialogTexts::retranslate() const
{
    for (Entry const& entry : m_entries)
        entry.set();
}

void DialogTexts::Entry::set() const
{
    setter(QCoreApplication::translate(context, source) + QLatin1String(tag));
}

}  // namespace Freecut
