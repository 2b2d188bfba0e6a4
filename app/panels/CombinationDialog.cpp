// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/panels/CombinationDialog.h"

#include "app/panels/QuestionForm.h"
#include "platform/ui/StoredSettings.h"
#include "platform/ui/Theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>

namespace {

constexpr char keepKey[] = "/Combine/keepOthers";
/// In sizes of the font.
constexpr int nameWidth = 18;

}  // namespace

CombinationDialog::CombinationDialog(Texts const& texts, QStringList const& names, QWidget* parent)
    : QDialog(parent),
      m_first(new QComboBox(this)),
      m_keep(new QCheckBox(tr("Keep the other parts"), this))
{
    setWindowTitle(texts.title);
    for (QString const& name : names)
        m_first->addItem(fontMetrics().elidedText(name, Qt::ElideMiddle, g_pixelSize * nameWidth));
    m_first->setMinimumWidth(g_pixelSize * nameWidth);
    m_keep->setChecked(storedValue(QLatin1String(keepKey)).toBool());
    auto* const form = new QFormLayout;
    form->addRow(texts.choice, m_first);
    form->addRow(QString(), m_keep);
    layOutQuestion(*this, form, texts.accept, tr("Cancel"));
}

int CombinationDialog::first() const
{
    return m_first->currentIndex();
}

bool CombinationDialog::keepsOthers() const
{
    return m_keep->isChecked();
}

void CombinationDialog::accept()
{
    storeValue(QLatin1String(keepKey), keepsOthers());
    QDialog::accept();
}
