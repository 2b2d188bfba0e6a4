// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/files/ReloadOffer.h"

#include "app/files/DocumentFiles.h"
#include "app/jobs/JobGuard.h"
#include "platform/ui/ActiveDocument.h"

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr int lookMilliseconds = 1000;
constexpr int mostNames = 3;

}  // namespace

ReloadOffer::ReloadOffer(DocumentFiles& files, QWidget* parent)
    : QFrame(parent),
      m_files(files),
      m_text(new QLabel(this)),
      m_reload(new QPushButton(this)),
      m_keep(new QPushButton(this))
{
    setObjectName(QStringLiteral("ReloadOffer"));
    setFrameShape(QFrame::StyledPanel);
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_reload->setObjectName(QStringLiteral("Reload"));
    m_keep->setObjectName(QStringLiteral("Keep"));
    // A click leaves the focus where it was: it would go to just any field when this hides.
    m_reload->setFocusPolicy(Qt::TabFocus);
    m_keep->setFocusPolicy(Qt::TabFocus);
    auto* const row = new QHBoxLayout(this);
    row->addWidget(m_text, 1);
    row->addWidget(m_reload);
    row->addWidget(m_keep);
    connect(m_reload, &QPushButton::clicked, this, &ReloadOffer::reload);
    connect(m_keep, &QPushButton::clicked, this, &ReloadOffer::keep);
    connect(JobGuard::instance(), &JobGuard::busyChanged, this, &ReloadOffer::refresh);
    connect(&m_timer, &QTimer::timeout, this, &ReloadOffer::look);
    m_timer.start(lookMilliseconds);
    m_thread.setMaxThreadCount(1);
    refresh();
}

ReloadOffer::~ReloadOffer()
{
    m_thread.waitForDone();
}

QStringList ReloadOffer::offered() const
{
    QStringList files;
    for (auto const& [file, version] : m_offered)
        files << file;
    return files;
}

void ReloadOffer::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        refresh();
    QFrame::changeEvent(event);
}

// A file on a disk that does not answer must not hold up the window.
void ReloadOffer::look()
{
    Base::Document const* const document = activeDocument();
    if (m_isLooking || !document || !window()->isVisible())
        return;
    Versions versions = m_files.origins().filesOf(document->getMeshObjects());
    if (versions.empty()) {
        take({});
        return;
    }
    m_isLooking = true;
    m_thread.start([this, versions = std::move(versions)]() mutable {
        for (auto& [file, version] : versions)
            version = stampOf(file);
        QMetaObject::invokeMethod(
            this,
            [this, versions = std::move(versions)] {
                m_isLooking = false;
                take(versions);
            },
            Qt::QueuedConnection);
    });
}

void ReloadOffer::take(Versions const& onDisk)
{
    Base::Document const* const document = activeDocument();
    Versions const known =
        document ? m_files.origins().filesOf(document->getMeshObjects()) : Versions();
    m_offered.clear();
    for (auto const& [file, version] : onDisk) {
        auto const asRead = known.find(file);
        auto const before = m_lastSeen.find(file);
        // One that is gone may be on its way back; one that changes still is being written.
        bool const rests = before != m_lastSeen.end() && before->second == version;
        if (version && rests && asRead != known.end() && asRead->second != version)
            m_offered[file] = version;
    }
    m_lastSeen = onDisk;
    refresh();
}

void ReloadOffer::refresh()
{
    QStringList names;
    for (auto const& [file, version] : m_offered)
        if (names.size() < mostNames)
            names << QFileInfo(file).fileName();
    if (int(m_offered.size()) > mostNames)
        names << QStringLiteral("...");
    m_text->setText(tr("Changed on disk since it was opened: %1").arg(names.join(", ")));
    m_reload->setText(tr("Reload"));
    m_keep->setText(tr("Keep as It Is"));
    m_reload->setToolTip(
        tr("Read the file again. The parts stay where they are placed; this can "
           "be undone."));
    m_reload->setEnabled(!JobGuard::instance()->isBusy());
    setVisible(!m_offered.empty());
}

void ReloadOffer::reload()
{
    m_files.reload(offered());
    keep();
}

void ReloadOffer::keep()
{
    for (auto const& [file, version] : m_offered)
        m_files.origins().accept(file, version);
    m_offered.clear();
    refresh();
}
