// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/ExportDialog.h"

#include "host/formats/FormatRegistry.h"
#include "platform/ui/StoredSettings.h"
#include "platform/ui/Theme.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr char formatKey[] = "/Export/format";
/// In sizes of the font.
constexpr int formatWidth = 16;
constexpr char fileEachKey[] = "/Export/fileForEachPart";

QString latin(std::string_view text)
{
    return QString::fromLatin1(text.data(), int(text.size()));
}

}  // namespace

ExportDialog::ExportDialog(int parts, QWidget* parent)
    : QDialog(parent),
      m_formats(new QComboBox(this)),
      m_oneFile(new QRadioButton(tr("All parts in one file"), this)),
      m_fileEach(new QRadioButton(tr("One file for each part"), this))
{
    setWindowTitle(parts == 1 ? tr("Export Part") : tr("Export %n Parts", nullptr, parts));
    fillFormats();
    buildFileChoice(parts);
    restore();
}

void ExportDialog::fillFormats()
{
    for (auto const& format : Formats::FormatRegistry::instance().formats())
        m_formats->addItem(
            QCoreApplication::translate("Formats", std::string(format->title()).c_str()),
            latin(format->name()));
}

void ExportDialog::buildFileChoice(int parts)
{
    auto* const form = new QFormLayout;
    form->addRow(tr("Format"), m_formats);
    form->addRow(tr("Files"), m_oneFile);
    form->addRow(QString(), m_fileEach);
    for (QRadioButton* const choice : {m_oneFile, m_fileEach})
        choice->setVisible(parts > 1);
    if (parts <= 1)
        form->labelForField(m_oneFile)->hide();
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Export..."));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &ExportDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ExportDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addWidget(buttons);
    int const margin = themePixels("dialogWidegtMargin");
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(themePixels("layoutSpacing") * 2);
    m_formats->setMinimumWidth(g_pixelSize * formatWidth);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void ExportDialog::restore()
{
    int const format = m_formats->findData(storedValue(QLatin1String(formatKey)));
    m_formats->setCurrentIndex(std::max(format, 0));
    bool const isEach = storedValue(QLatin1String(fileEachKey)).toBool();
    (isEach && !m_fileEach->isHidden() ? m_fileEach : m_oneFile)->setChecked(true);
}

QString ExportDialog::format() const
{
    return m_formats->currentData().toString();
}

bool ExportDialog::isOneFilePerPart() const
{
    return m_fileEach->isChecked();
}

void ExportDialog::accept()
{
    storeValue(QLatin1String(formatKey), format());
    if (!m_fileEach->isHidden())
        storeValue(QLatin1String(fileEachKey), isOneFilePerPart());
    QDialog::accept();
}
