// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/MellMessageBox.h"

#include "host/ui/MessageArea.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/ui/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
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
    : QDialog(parent), m_message(new MessageArea(this)), m_buttons(new QDialogButtonBox(this))
{
    auto* const message = new QHBoxLayout;
    message->setSpacing(g_pixelSize);
    message->addWidget(new WarningSign(this), 0, Qt::AlignTop);
    message->addWidget(m_message, 1);
    auto* const content = new QVBoxLayout(this);
    int const margin = g_pixelSize * 4 / 3;
    content->setContentsMargins(margin, margin, margin, margin);
    content->setSpacing(margin);
    content->setSizeConstraint(QLayout::SetMinimumSize);
    content->addLayout(message, 1);
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
        box.addAnswer(i, texts[i], i == defaultButton);
    }
    // Else the first button would have the focus at first.
    if (defaultButton < 0) {
        box.setFocusPolicy(Qt::StrongFocus);
        box.setFocus();
    }
    return box.answer(closed);
}

void MellMessageBox::addAnswer(int index, QString const& text, bool isDefault)
{
    QPushButton* const button = m_buttons->addButton(text, QDialogButtonBox::ActionRole);
    button->setProperty("answer", index);
    button->setDefault(isDefault);
    button->setAutoDefault(isDefault);
    if (isDefault)
        button->setFocus();
}

int MellMessageBox::answer(int ofClosedBox)
{
    // The dialog's own result cannot tell button 0 from a closed box.
    int answer = ofClosedBox;
    connect(m_buttons, &QDialogButtonBox::clicked, this,
            [&](QAbstractButton* pressed) { answer = pressed->property("answer").toInt(); });
    QDialog::exec();
    return answer;
}

int MellMessageBox::failure(QWidget* parent, QString const& title, QString const& text,
                            QString const& details, QStringList const& buttons)
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        Base::ConsoleSingleton::Instance().Log(text.toStdString());
        Base::ConsoleSingleton::Instance().Log(details.toStdString());
        return 0;
    }
    MellMessageBox box(parent);
    box.setWindowTitle(title);
    box.setText(text);
    for (int i = 0; i < buttons.size(); ++i)
        box.addAnswer(i, buttons[i], i == 0);
    if (!details.isEmpty())
        box.setDetails(details);
    return box.answer(0);
}

void MellMessageBox::setDetails(QString const& details)
{
    m_message->details()->setText(details);
    m_message->details()->setVisible(!details.isEmpty());
    m_message->updateGeometry();
}

QString MellMessageBox::details() const
{
    return m_message->details()->text();
}

void MellMessageBox::setText(QString const& text)
{
    m_message->text()->setText(text);
    m_message->updateGeometry();
}

QString MellMessageBox::text() const
{
    return m_message->text()->text();
}

void MellMessageBox::setStandardButtons(QDialogButtonBox::StandardButtons buttons)
{
    m_buttons->setStandardButtons(buttons);
}

void MellMessageBox::setDefaultButton(QDialogButtonBox::StandardButton button)
{
    if (QPushButton* const chosen = m_buttons->button(button)) {
        chosen->setDefault(true);
        chosen->setFocus();
    }
}

QPushButton* MellMessageBox::button(QDialogButtonBox::StandardButton button) const
{
    return m_buttons->button(button);
}

void MellMessageBox::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(details().isEmpty() ? text()
                                                               : text() + '\n' + details());
        return;
    }
    switch (event->key()) {
        case Qt::Key_Enter:
        case Qt::Key_Return:
            // A dialog would press its default button whatever has the focus.
            if (auto* const focused = qobject_cast<QPushButton*>(focusWidget())) {
                focused->click();
                return;
            }
            break;
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            m_message->verticalScrollBar()->triggerAction(event->key() == Qt::Key_PageUp
                                                              ? QAbstractSlider::SliderPageStepSub
                                                              : QAbstractSlider::SliderPageStepAdd);
            return;
        default:
            break;
    }
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
