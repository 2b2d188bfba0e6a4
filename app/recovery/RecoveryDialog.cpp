// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recovery/RecoveryDialog.h"

#include "platform/ui/MellMessageBox.h"
#include "platform/ui/Theme.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

/// In sizes of the font.
constexpr int listWidth = 36;
constexpr int rowHeight = 8;

QString described(RecoveryList const& list)
{
    QLocale const locale;
    return list.title() + '\n' + RecoveryDialog::tr("%n parts", nullptr, int(list.partCount())) +
           ", " +
           (list.triangles == 1 ? RecoveryDialog::tr("1 triangle")
                                : RecoveryDialog::tr("%1 triangles")
                                      .arg(locale.toString(qulonglong(list.triangles)))) +
           '\n' + locale.toString(list.time, QLocale::ShortFormat);
}

}  // namespace

RecoveryDialog::RecoveryDialog(std::vector<KeptWork> const& works, QWidget* parent)
    : QDialog(parent), m_list(new QListWidget(this))
{
    setWindowTitle(tr("Recover Unsaved Work"));
    auto* const layout = new QVBoxLayout(this);
    int const margin = themePixels("dialogWidegtMargin");
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(themePixels("layoutSpacing") * 2);
    auto* const text = new QLabel(
        tr("The program ended before these changes were saved. Recover them to go on working."),
        this);
    text->setWordWrap(true);
    layout->addWidget(text);
    buildList(works);
    layout->addWidget(m_list, 1);
    buildButtons();
}

void RecoveryDialog::buildList(std::vector<KeptWork> const& works)
{
    int const height = g_pixelSize * rowHeight;
    m_list->setObjectName(QStringLiteral("KeptWorks"));
    m_list->setIconSize({height * 4 / 3, height});
    m_list->setMinimumWidth(g_pixelSize * listWidth);
    for (KeptWork const& work : works) {
        auto* const item = new QListWidgetItem(described(work.list), m_list);
        if (!work.picture.isNull())
            item->setIcon(QIcon(QPixmap::fromImage(work.picture)));
        item->setToolTip(work.list.projectFile);
    }
    m_list->setCurrentRow(0);
    connect(m_list, &QListWidget::itemActivated, this,
            [this] { answer(RecoveryChoice::Kind::Recover); });
}

void RecoveryDialog::buildButtons()
{
    auto* const buttons = new QDialogButtonBox(this);
    auto* const recover = buttons->addButton(tr("Recover"), QDialogButtonBox::AcceptRole);
    auto* const discard = buttons->addButton(tr("Discard..."), QDialogButtonBox::DestructiveRole);
    auto* const later = buttons->addButton(tr("Later"), QDialogButtonBox::RejectRole);
    recover->setDefault(true);
    connect(recover, &QPushButton::clicked, this,
            [this] { answer(RecoveryChoice::Kind::Recover); });
    connect(discard, &QPushButton::clicked, this, &RecoveryDialog::discard);
    connect(later, &QPushButton::clicked, this, &RecoveryDialog::reject);
    layout()->addWidget(buttons);
}

void RecoveryDialog::answer(RecoveryChoice::Kind kind)
{
    m_choice = {kind, std::size_t(m_list->currentRow())};
    accept();
}

void RecoveryDialog::discard()
{
    QString const name = m_list->currentItem()->text().section('\n', 0, 0);
    int const answered = MellMessageBox::warning(
        this, tr("Discard"),
        tr("The unsaved changes of \"%1\" cannot be brought back afterwards.").arg(name),
        tr("Discard"), tr("Keep"), "", 1, 1);
    if (answered == 0)
        answer(RecoveryChoice::Kind::Discard);
}

RecoveryChoice RecoveryDialog::ask(std::vector<KeptWork> const& works, QWidget* parent)
{
    RecoveryDialog dialog(works, parent);
    dialog.exec();
    return dialog.m_choice;
}
