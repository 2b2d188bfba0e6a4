// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/OutlineImportDialog.h"

#include "dialogs/SolidFields.h"
#include "platform/jobs/Exceptions.h"
#include "platform/ui/MellQuantitySpinBox.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QSignalBlocker>

namespace Freecut {

namespace {

QString sizeText(Drawings::Path const& path)
{
    Drawings::Extent const extent = Drawings::extentOf(path);
    return QStringLiteral("%1 × %2 mm")
        .arg(QLocale().toString(extent.width(), 'f', 2),
             QLocale().toString(extent.height(), 'f', 2));
}

}  // namespace

OutlineImportDialog::OutlineImportDialog(QString const& file, std::array<QString, 2> const& axes,
                                         UPoint2<float> const& middle, QWidget* parent)
    : QDialog(parent), m_file(file)
{
    setWindowTitle(tr("Import outline"));
    auto* const form = new QFormLayout(this);
    m_units = new QComboBox(this);
    m_units->addItem(tr("As the drawing says"), QString());
    for (char const* const unit : {"mm", "cm", "in", "px"})
        m_units->addItem(QString::fromLatin1(unit), QString::fromLatin1(unit));
    m_numbers = new QComboBox(this);
    form->addRow(tr("Drawing"), new QLabel(QFileInfo(file).fileName(), this));
    form->addRow(tr("Unit"), m_units);
    form->addRow(tr("Path"), m_numbers);
    for (std::size_t i = 0; i < 2; ++i) {
        m_middle[i] = SolidFields::makeCoordinate(this);
        m_middle[i]->setValue(double(i == 0 ? middle.X() : middle.Y()));
        form->addRow(tr("Middle at %1").arg(axes[i]), m_middle[i]);
    }
    m_outcome = new QLabel(this);
    m_outcome->setWordWrap(true);
    m_outcome->setMinimumWidth(m_outcome->fontMetrics().averageCharWidth() * 48);
    form->addRow(m_outcome);
    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    m_ok->setText(tr("Import"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_units, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &OutlineImportDialog::readFile);
    connect(m_numbers, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &OutlineImportDialog::choose);
    readFile();
}

UPoint2<float> OutlineImportDialog::middle() const
{
    return {float(m_middle[0]->value()), float(m_middle[1]->value())};
}

void OutlineImportDialog::readFile()
{
    m_paths.clear();
    try {
        m_paths = Drawings::readPaths(
            m_file, Drawings::unitOfName(m_units->currentData().toString().toStdString()));
        listPaths();
        choose();
    } catch (Mell::Exception const& reason) {
        listPaths();
        m_outcome->setText(QString::fromStdString(reason.what()));
        m_ok->setEnabled(false);
    }
}

void OutlineImportDialog::listPaths()
{
    QSignalBlocker const quiet(m_numbers);
    int const chosen = std::max(m_numbers->currentIndex(), 0);
    m_numbers->clear();
    m_numbers->addItem(tr("The largest"));
    for (std::size_t i = 0; i < m_paths.size(); ++i)
        m_numbers->addItem((m_paths[i].isClosed ? tr("%1: %2") : tr("%1: %2, open"))
                               .arg(i + 1)
                               .arg(sizeText(m_paths[i])));
    m_numbers->setCurrentIndex(chosen < m_numbers->count() ? chosen : 0);
}

void OutlineImportDialog::choose()
{
    try {
        int const index = m_numbers->currentIndex();
        m_path = Drawings::chosenPath(m_paths,
                                      index > 0 ? std::optional(std::size_t(index)) : std::nullopt);
        m_outcome->setText(
            tr("%1, %2 corners")
                .arg(sizeText(m_path), QLocale().toString(int(m_path.points.size()))));
        m_ok->setEnabled(true);
    } catch (Mell::Exception const& reason) {
        m_outcome->setText(QString::fromStdString(reason.what()));
        m_ok->setEnabled(false);
    }
}

}  // namespace Freecut
