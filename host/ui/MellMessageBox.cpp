// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/MellMessageBox.h"

#include "platform/jobs/ConsoleSingleton.h"
#include "platform/ui/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>

namespace {

/// An exclamation mark on a disc.
class WarningSign : public QWidget
{
public:
    explicit WarningSign(QWidget* parent) : QWidget(parent)
    {
        setFixedSize(g_pixelSize * 5 / 2, g_pixelSize * 5 / 2);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        double const side = width();
        painter.setPen(Qt::NoPen);
        painter.setBrush(themeColor("caution"));
        painter.drawEllipse(QRectF(rect()));
        painter.setPen(QPen(themeColor("window"), side / 10, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(side / 2, side * 0.25), QPointF(side / 2, side * 0.56));
        painter.drawPoint(QPointF(side / 2, side * 0.75));
    }
};

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
    : QDialog(parent),
      m_text(new QLabel(this)),
      m_details(new QLabel(this)),
      m_buttons(new QDialogButtonBox(this))
{
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
    m_details->setObjectName(QStringLiteral("Details"));
    m_details->setWordWrap(true);
    m_details->setTextFormat(Qt::PlainText);
    m_details->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_details->hide();

    auto* const message = new QHBoxLayout;
    message->setSpacing(g_pixelSize);
    message->addWidget(new WarningSign(this), 0, Qt::AlignTop);
    message->addWidget(m_text, 1);
    auto* const content = new QVBoxLayout(this);
    int const margin = g_pixelSize * 4 / 3;
    content->setContentsMargins(margin, margin, margin, margin);
    content->setSpacing(margin);
    content->setSizeConstraint(QLayout::SetMinimumSize);
    content->addLayout(message);
    content->addWidget(m_details);
    content->addWidget(m_buttons);

    setModal(true);
    connect(m_buttons, &QDialogButtonBox::clicked, this, [this](QAbstractButton* pressed) {
        if (m_buttons->buttonRole(pressed) == QDialogButtonBox::HelpRole) {
            m_details->setVisible(m_details->isHidden());
            adjustSize();
            return;
        }
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

void MellMessageBox::failure(QWidget* parent, QString const& title, QString const& text,
                             QString const& details, QString const& button)
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        Base::ConsoleSingleton::Instance().Log(text.toStdString());
        Base::ConsoleSingleton::Instance().Log(details.toStdString());
        return;
    }
    MellMessageBox box(parent);
    box.setWindowTitle(title);
    box.setText(text);
    box.m_buttons->addButton(button, QDialogButtonBox::ActionRole)->setDefault(true);
    if (!details.isEmpty())
        box.setDetails(details);
    box.QDialog::exec();
}

void MellMessageBox::setDetails(QString const& details)
{
    if (m_details->text().isEmpty())
        m_buttons->addButton(tr("Details"), QDialogButtonBox::HelpRole)->setAutoDefault(false);
    m_details->setText(details);
}

QString MellMessageBox::details() const
{
    return m_details->text();
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

void MellMessageBox::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        QApplication::clipboard()->setText(details().isEmpty() ? text()
                                                               : text() + '\n' + details());
    else
        QDialog::keyPressEvent(event);
}

int MellMessageBox::exec()
{
    int const pressed = QDialog::exec();
    if (pressed != QDialog::Rejected)
        return pressed;
    return m_buttons->button(QDialogButtonBox::Cancel) ? QDialogButtonBox::Cancel
                                                       : QDialogButtonBox::NoButton;
}
