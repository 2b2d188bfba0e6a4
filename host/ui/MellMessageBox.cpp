// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/MellMessageBox.h"

#include "platform/jobs/ConsoleSingleton.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include <array>

namespace {

int answerOfClosedBox(std::array<QString, 3> const& texts, int escapeButton)
{
    if (escapeButton >= 0)
        return escapeButton;
    for (int i = 2; i > 0; --i)
        if (!texts[i].isEmpty())
            return i;
    return 0;
}

}  // namespace

MellMessageBox::MellMessageBox(QWidget* parent)
    : QDialog(parent), m_text(new QLabel(this)), m_buttons(new QDialogButtonBox(this))
{
    auto* const icon = new QLabel(this);
    int const size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setMinimumWidth(fontMetrics().averageCharWidth() * 40);

    auto* const message = new QHBoxLayout;
    message->addWidget(icon, 0, Qt::AlignTop);
    message->addWidget(m_text, 1);
    auto* const content = new QVBoxLayout(this);
    content->addLayout(message);
    content->addWidget(m_buttons);

    setModal(true);
    connect(m_buttons, &QDialogButtonBox::clicked, this, [this](QAbstractButton* pressed) {
        QVariant const index = pressed->property("answer");
        done(index.isValid() ? index.toInt() : int(m_buttons->standardButton(pressed)));
    });
}

int MellMessageBox::warning(QWidget* parent, QString const& title, QString const& text,
                            QString const& button0, QString const& button1, QString const& button2,
                            int defaultButton, int escapeButton)
{
    std::array<QString, 3> const texts{button0, button1, button2};
    int const closed = answerOfClosedBox(texts, escapeButton);
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        Base::ConsoleSingleton::Instance().Log(text.toStdString());
        return closed;
    }

    MellMessageBox box(parent);
    box.setWindowTitle(title);
    box.setText(text);
    for (int i = 0; i < 3; ++i) {
        if (texts[i].isEmpty())
            continue;
        QPushButton* const button =
            box.m_buttons->addButton(texts[i], QDialogButtonBox::ActionRole);
        button->setProperty("answer", i);
        button->setDefault(i == defaultButton);
        button->setAutoDefault(i == defaultButton);
    }
    // The dialog's own result cannot tell button 0 from a closed box.
    int answer = closed;
    connect(box.m_buttons, &QDialogButtonBox::clicked, &box,
            [&](QAbstractButton* pressed) { answer = pressed->property("answer").toInt(); });
    box.QDialog::exec();
    return answer;
}

void MellMessageBox::setText(QString const& text)
{
    m_text->setText(text);
}

QString MellMessageBox::text() const
{
    return m_text->text();
}

void MellMessageBox::setStandardButtons(QDialogButtonBox::StandardButtons buttons)
{
    m_buttons->setStandardButtons(buttons);
}

void MellMessageBox::setDefaultButton(QDialogButtonBox::StandardButton button)
{
    if (QPushButton* const chosen = m_buttons->button(button))
        chosen->setDefault(true);
}

QPushButton* MellMessageBox::button(QDialogButtonBox::StandardButton button) const
{
    return m_buttons->button(button);
}

int MellMessageBox::exec()
{
    int const pressed = QDialog::exec();
    if (pressed != QDialog::Rejected)
        return pressed;
    return m_buttons->button(QDialogButtonBox::Cancel) ? QDialogButtonBox::Cancel
                                                       : QDialogButtonBox::NoButton;
}
