// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorPreset.h"

#include <QPushButton>

#include <functional>

class QMenu;

namespace Freecut {

/// A button with a menu of the stored presets of connector values: to choose one, to save the
/// values that stand, to delete, import and export.
class PresetButton : public QPushButton
{
    Q_OBJECT

public:
    explicit PresetButton(QWidget* parent);

    /// The values that stand, without a name; and how those of a preset are taken.
    void setValues(std::function<ConnectorPreset()> read,
                   std::function<void(ConnectorPreset const&)> write);

    // What the menu does; each says what went wrong.

    void choose(ConnectorPreset const& preset);
    void saveAs(QString const& name);
    /// Stores the preset under its name, or that of the file, and chooses it.
    void importFrom(QString const& file);
    void exportTo(QString const& file);

protected:
    void changeEvent(QEvent* event) override;

private:
    void fill(QMenu& menu);
    void retranslate();

    std::function<ConnectorPreset()> m_read;
    std::function<void(ConnectorPreset const&)> m_write;
};

}  // namespace Freecut
