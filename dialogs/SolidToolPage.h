// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/DialogTexts.h"
#include "platform/geometry/UPoint3.h"

#include <QWidget>

#include <functional>
#include <optional>

class MellQuantitySpinBox;
class QButtonGroup;
class QCheckBox;
class QGridLayout;
class QLabel;

namespace Base {
class GLView;
}

namespace Freecut {

class DialogPolygoncut;
class VolumeGraphicObject;
class VolumeSelection;
struct SolidValues;

/// What the pages of the polygon dialog share of a tool's values, besides their own fields.
struct SharedToolValues
{
    bool isCutTillEnabled = false;
    float cutTill = 0;
    bool showsCoordinate = false;
    /// 0 to 5, or -1.
    int viewIndex = -1;
};

/// A tab of the polygon dialog: the values of one kind of solid tool. A page translates its fields
/// to the tool's record and back, and says what the dialog has to know of its kind; it is only
/// asked about tools of that kind.
class SolidToolPage : public QWidget
{
    Q_OBJECT

public:
    SolidToolPage(DialogPolygoncut& dialog, QWidget* parent);

    /// The class names of the tool object and of the mouse tool that draws it.
    virtual char const* objectClass() const = 0;
    virtual char const* selectionClass() const = 0;

    /// Writes the fields into the tool's record. A tool without a size gets one first, which the
    /// fields then show.
    ///
    /// suitableSize  the size of the scene
    virtual void write(VolumeGraphicObject& tool, SharedToolValues const& shared,
                       std::function<float()> const& suitableSize) = 0;
    /// Shows what drags have changed; null without a tool of this kind.
    virtual void refresh(VolumeGraphicObject* tool);
    /// Shows all values of the tool's record, which have been put back.
    virtual void showValues(SolidValues const& values);
    /// Whether the tool has what it takes to cut.
    virtual bool isComplete(VolumeGraphicObject const& tool) const;
    /// Something else is being edited, so that there can be no cut now.
    virtual bool holdsCut() const { return false; }
    /// The point whose coordinates are shown.
    virtual std::optional<UPoint3<float>> shownPoint(VolumeGraphicObject& tool,
                                                     bool showsCoordinate) const;

    // By the running mouse tool of the page; without it they do nothing.

    void movePoint(Base::GLView* view, UPoint3<float> const& to) const;
    void addPoint(Base::GLView* view, UPoint3<float> const& eyePoint) const;

    bool isClearanceOn() const;
    void retranslate() const { m_texts.retranslate(); }

public slots:
    /// A field has been changed.
    void on_valueChanged();

protected:
    /// A row of the page: a check box or a label, and a field.
    MellQuantitySpinBox* addRow(char const* source, MellQuantitySpinBox* field);
    QCheckBox* addCheckedRow(char const* source, MellQuantitySpinBox* field);
    void addWidget(QWidget* widget);
    /// Clearance and its direction stand at the foot of each page.
    void addClearance();
    void connectField(MellQuantitySpinBox* field);

    int clearanceDirection() const;
    float clearance() const;
    /// Enables what depends on check boxes.
    virtual void followChecks();

    DialogPolygoncut& dialog() const { return m_dialog; }
    DialogTexts& texts() { return m_texts; }

private:
    VolumeSelection* runningSelection(Base::GLView* view) const;

    DialogPolygoncut& m_dialog;
    DialogTexts m_texts;
    QGridLayout* m_grid;
    QCheckBox* m_useClearance = nullptr;
    MellQuantitySpinBox* m_clearance = nullptr;
    QLabel* m_directionLabel = nullptr;
    QButtonGroup* m_direction = nullptr;
};

}  // namespace Freecut
