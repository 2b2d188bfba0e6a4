// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/ExportDialog.h"

#include "host/formats/FormatRegistry.h"
#include "platform/ui/StoredSettings.h"
#include "platform/ui/Theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr char formatKey[] = "/Export/format";
/// In sizes of the font.
constexpr int formatWidth = 16;
constexpr int nameWidth = 14;
constexpr int mostNames = 3;
constexpr char fileEachKey[] = "/Export/fileForEachPart";

QString latin(std::string_view text)
{
    return QString::fromLatin1(text.data(), int(text.size()));
}

}  // namespace

ExportDialog::ExportDialog(ExportOffer const& offer, QWidget* parent)
    : QDialog(parent),
      m_formats(new QComboBox(this)),
      m_oneFile(new QRadioButton(tr("All parts in one file"), this)),
      m_fileEach(new QRadioButton(tr("One file for each part"), this)),
      m_hidden(new QCheckBox(this)),
      m_offer(offer)
{
    fillFormats();
    build();
    restore();
    connect(m_formats, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &ExportDialog::proposeFiles);
    connect(m_fileEach, &QAbstractButton::clicked, this, [this] { m_hasChosenFiles = true; });
    connect(m_oneFile, &QAbstractButton::clicked, this, [this] { m_hasChosenFiles = true; });
    connect(m_hidden, &QAbstractButton::toggled, this, &ExportDialog::countParts);
    countParts();
}

void ExportDialog::fillFormats()
{
    for (auto const& format : Formats::FormatRegistry::instance().formats())
        m_formats->addItem(
            QCoreApplication::translate("Formats", std::string(format->title()).c_str()),
            latin(format->name()));
}

void ExportDialog::buildHiddenChoice()
{
    QStringList names = m_offer.hidden.mid(0, mostNames);
    for (QString& name : names)
        name = fontMetrics().elidedText(name, Qt::ElideMiddle, g_pixelSize * nameWidth);
    if (m_offer.hidden.size() > mostNames)
        names << QStringLiteral("...");
    m_hidden->setText(
        tr("Hidden parts too: %1").arg(names.join(QStringLiteral(", ")).replace('&', "&&")));
    m_hidden->setToolTip(m_offer.hidden.join('\n'));
    m_hidden->setVisible(!m_offer.hidden.isEmpty());
    // With nothing else to export there is no choice.
    m_hidden->setChecked(m_offer.parts == 0);
    m_hidden->setEnabled(m_offer.parts > 0);
}

void ExportDialog::build()
{
    buildHiddenChoice();
    auto* const form = new QFormLayout;
    form->addRow(tr("Format"), m_formats);
    form->addRow(m_filesLabel = new QLabel(tr("Files"), this), m_oneFile);
    form->addRow(QString(), m_fileEach);
    if (!m_offer.hidden.isEmpty())
        form->addRow(QString(), m_hidden);
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
    QVariant const isEach = storedValue(QLatin1String(fileEachKey));
    m_hasChosenFiles = isEach.isValid();
    m_oneFile->setChecked(true);
    if (m_hasChosenFiles)
        (isEach.toBool() ? m_fileEach : m_oneFile)->setChecked(true);
    proposeFiles();
}

/// What the user has not chosen follows the format: most hold one mesh, in which the parts would be
/// apart no more.
void ExportDialog::proposeFiles()
{
    if (!m_hasChosenFiles)
        (format() == QLatin1String("3mf") ? m_oneFile : m_fileEach)->setChecked(true);
}

int ExportDialog::parts() const
{
    return m_offer.parts + (takesHidden() ? int(m_offer.hidden.size()) : 0);
}

void ExportDialog::countParts()
{
    setWindowTitle(parts() == 1 ? tr("Export Part") : tr("Export %n Parts", nullptr, parts()));
    for (QWidget* const widget :
         {static_cast<QWidget*>(m_filesLabel), static_cast<QWidget*>(m_oneFile),
          static_cast<QWidget*>(m_fileEach)})
        widget->setVisible(parts() > 1);
}

bool ExportDialog::takesHidden() const
{
    return m_hidden->isChecked();
}

QString ExportDialog::format() const
{
    return m_formats->currentData().toString();
}

bool ExportDialog::isOneFilePerPart() const
{
    return parts() > 1 && m_fileEach->isChecked();
}

void ExportDialog::accept()
{
    storeValue(QLatin1String(formatKey), format());
    if (parts() > 1 && m_hasChosenFiles)
        storeValue(QLatin1String(fileEachKey), isOneFilePerPart());
    QDialog::accept();
}
