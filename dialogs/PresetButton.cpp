// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/PresetButton.h"

#include "dialogs/StoredPresets.h"
#include "messages/OrSayWhyNot.h"

#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenu>

namespace Freecut {

PresetButton::PresetButton(QWidget* parent) : QPushButton(parent)
{
    auto* const shown = new QMenu(this);
    connect(shown, &QMenu::aboutToShow, this, [this, shown] { fill(*shown); });
    setMenu(shown);
    retranslate();
}

void PresetButton::setValues(std::function<ConnectorPreset()> read,
                             std::function<void(ConnectorPreset const&)> write)
{
    m_read = std::move(read);
    m_write = std::move(write);
}

void PresetButton::choose(ConnectorPreset const& preset)
{
    if (m_write)
        m_write(preset);
}

void PresetButton::saveAs(QString const& name)
{
    if (name.trimmed().isEmpty() || !m_read)
        return;
    ConnectorPreset preset = m_read();
    preset.name = name.trimmed();
    StoredPresets::add(preset);
}

void PresetButton::importFrom(QString const& file)
{
    orSayWhyNot([&] {
        ConnectorPreset preset = ConnectorPreset::read(file);
        if (preset.name.isEmpty())
            preset.name = QFileInfo(file).completeBaseName();
        StoredPresets::add(preset);
        choose(preset);
    });
}

void PresetButton::exportTo(QString const& file)
{
    orSayWhyNot([&] {
        if (!m_read)
            return;
        ConnectorPreset preset = m_read();
        preset.name = QFileInfo(file).completeBaseName();
        preset.write(file);
    });
}

void PresetButton::fill(QMenu& menu)
{
    menu.clear();
    std::vector<ConnectorPreset> const presets = StoredPresets::all();
    for (ConnectorPreset const& preset : presets)
        menu.addAction(QString(preset.name).replace('&', QStringLiteral("&&")),
                       [this, preset] { choose(preset); });
    menu.addSeparator();
    QString const files = tr("Presets of connectors (*.json)");
    menu.addAction(tr("Save as..."), [this] {
        saveAs(QInputDialog::getText(this, tr("Save preset"), tr("Name of the preset")));
    });
    QMenu* const removing = menu.addMenu(tr("Delete"));
    removing->setEnabled(!presets.empty());
    for (ConnectorPreset const& preset : presets)
        removing->addAction(QString(preset.name).replace('&', QStringLiteral("&&")),
                            [name = preset.name] { StoredPresets::remove(name); });
    menu.addAction(tr("Import..."), [this, files] {
        QString const file = QFileDialog::getOpenFileName(this, tr("Import preset"), {}, files);
        if (!file.isEmpty())
            importFrom(file);
    });
    menu.addAction(tr("Export..."), [this, files] {
        QString file = QFileDialog::getSaveFileName(this, tr("Export preset"), {}, files);
        if (file.isEmpty())
            return;
        if (QFileInfo(file).suffix().isEmpty())
            file += QStringLiteral(".json");
        exportTo(file);
    });
}

void PresetButton::retranslate()
{
    setText(tr("Presets"));
    setToolTip(tr("Keeps the values of the connectors under a name, and takes them up again."));
}

void PresetButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

}  // namespace Freecut
