// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/window/StatusLine.h"

#include "app/panels/ElidedLabel.h"
#include "app/window/JobProgressBar.h"
#include "app/window/ToolHint.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/ui/Application.h"
#include "platform/ui/Theme.h"
#include "platform/view/GLView.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QEvent>
#include <QLocale>
#include <QPainter>
#include <QStyleOption>
#include <QUrl>

namespace {

char const* const noPartHint =
    QT_TRANSLATE_NOOP("StatusLine", "Drop mesh files here, or open them from the File menu.");
char const* const viewHint =
    QT_TRANSLATE_NOOP("StatusLine", "Click a part to select it. Press ? for all shortcuts.");
constexpr int writtenMilliseconds = 30000;

}  // namespace

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent),
      m_hint(new ElidedLabel(this)),
      m_selection(new QLabel(this)),
      m_progress(new JobProgressBar(this))
{
    m_hint->setObjectName(QStringLiteral("Hint"));
    m_selection->setObjectName(QStringLiteral("SelectionSummary"));
    // Permanent, and the message in it: a widget that gives way to messages comes back before its
    // time, on top of the message, when another one beside it appears.
    addPermanentWidget(m_hint, 1);
    connect(this, &QStatusBar::messageChanged, this, &StatusLine::showHint);
    connect(m_hint, &QLabel::linkActivated, this,
            [](QString const& folder) { QDesktopServices::openUrl(QUrl(folder)); });
    m_writtenTime.setSingleShot(true);
    connect(&m_writtenTime, &QTimer::timeout, this, [this] {
        m_written.clear();
        showHint();
    });
    addPermanentWidget(m_progress);
    addPermanentWidget(m_selection);
    setSizeGripEnabled(false);
    keepHeight();
}

// The height with progress and without: otherwise the view would change its size, and draw all
// parts anew, whenever a job begins or ends.
void StatusLine::keepHeight()
{
    int const margin = fontMetrics().height() / 3;
    setContentsMargins(margin, 0, margin, 0);
    setFixedHeight(m_progress->sizeHint().height() + margin);
}

void StatusLine::changeEvent(QEvent* event)
{
    QStatusBar::changeEvent(event);
    bool const changesSize =
        event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange;
    if (changesSize)
        keepHeight();
    if (event->type() == QEvent::LanguageChange) {
        m_written.clear();
        clearMessage();
        showHint();
    }
}

void StatusLine::showHint()
{
    QString const message = currentMessage();
    bool const isWritten = message.isEmpty() && !m_written.isEmpty();
    m_hint->setTextFormat(isWritten ? Qt::RichText : Qt::PlainText);
    m_hint->setText(isWritten ? writtenText() : message.isEmpty() ? m_hintText : message);
}

QString StatusLine::writtenText() const
{
    QString const link = QUrl::fromLocalFile(m_writtenFolder).toString(QUrl::FullyEncoded);
    return QStringLiteral("%1&nbsp; <a href=\"%2\" style=\"color:%3\">%4</a>")
        .arg(m_written.toHtmlEscaped(), link, themeColor("accent").name(),
             tr("Open folder").toHtmlEscaped());
}

void StatusLine::showWritten(QString const& sentence, QString const& folder)
{
    m_written = sentence;
    m_writtenFolder = folder;
    m_writtenTime.start(writtenMilliseconds);
    clearMessage();
    showHint();
}

// Without the message, which stands in the label.
void StatusLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_PanelStatusBar, &option, &painter, this);
}

void StatusLine::refresh(Base::GLView const& view, Base::Document const* document)
{
    std::string const tool = view.getInteractModeName();
    bool const hasParts = document && !document->getMeshObjects().empty();
    m_hintText = tool.empty() ? tr(hasParts ? viewHint : noPartHint)
                              : toolHint(tool, Application::Instance->commandManager());
    showHint();
    m_selection->setText(selectionSummary(dynamic_cast<Mesh::Document const*>(document)));
}

QString StatusLine::selectionSummary(Mesh::Document const* document)
{
    auto const selected =
        document ? document->getSelectedMeshObjects() : std::vector<Mesh::DocumentObject*>();
    if (selected.empty())
        return {};
    qulonglong triangles = 0;
    for (Mesh::DocumentObject const* const part : selected)
        if (MeshKernel const* const kernel = part->meshProperty->getMesh())
            triangles += kernel->readMesh()->triangles.size();
    QString const count = QLocale().toString(triangles);
    if (selected.size() == 1 && triangles == 1)
        return tr("1 part, 1 triangle");
    return selected.size() == 1
               ? tr("1 part, %1 triangles").arg(count)
               : tr("%1 parts, %2 triangles").arg(QString::number(selected.size()), count);
}

QString StatusLine::hint() const
{
    return m_hintText;
}
