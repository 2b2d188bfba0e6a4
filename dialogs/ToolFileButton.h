// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drawings/Drawing.h"
#include "platform/geometry/UPoint3.h"

#include <QPushButton>

namespace Freecut {

class DialogPolygoncut;
class SolidToolPage;
struct SolidValues;
struct StoredTool;

/// The button of the polygon dialog for files: keeps the drawn tool, and takes up one that was kept.
/// What a file holds that cannot be used the user is told, and the tool stays as it was.
class ToolFileButton : public QPushButton
{
    Q_OBJECT

public:
    ToolFileButton(DialogPolygoncut& dialog, QWidget* parent);

    // What the entries of its menu do with a chosen file.

    void saveTo(QString const& file);
    /// One edit that can be taken back, unless the tool is of another kind than the one drawn.
    void openFrom(QString const& file);
    /// Makes a path the outline of the polygon, as it lies in the drawing. One edit.
    ///
    /// middle  where the middle of the path goes, in the world
    void importPath(Drawings::Path const& path, UPoint3<float> const& middle);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showMenu();
    void chooseAndSave();
    void chooseAndOpen();
    void chooseAndImport();
    SolidValues typedValues() const;
    void takeUp(StoredTool const& tool);
    SolidToolPage& page() const;
    bool canSave() const;
    void retranslate();

    DialogPolygoncut& m_dialog;
};

}  // namespace Freecut
