// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorPositions.h"
#include "dialogs/ConnectorChoices.h"
#include "dialogs/ItemInView.h"
#include "dialogs/SurveyRunner.h"
#include "selection/ClickTaker.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>

class QCheckBox;
class QLabel;
class QPushButton;

namespace Base {
class DocumentObject;
class GLView;
}  // namespace Base

namespace Freecut {

class ConnectorItem;
class PlaneGraphicObject;
class PresetButton;

/// What connectors are to be shown before they are cut.
struct PreviewScene
{
    /// Borrowed for the event; null for none to show.
    PlaneGraphicObject* plane = nullptr;
    QPointer<Base::GLView> view;
    std::vector<Mesh::DocumentObject*> parts;
    bool isBounded = false;
    ConnectorParas connectors = {};
};

/// The connectors of a section cut in the view before the cut, and under their page their number,
/// what is wrong with them, and the mode in which a person places them by hand.
///
/// It is told of every change by refresh() and looks at the scene once the events are done. What is
/// to be seen is found in the background; the mouse never waits. What is changed by hand is taken
/// back with the edits of the plane. Nothing is left in the view when this goes.
class ConnectorPreview : public QWidget, public ClickTaker, public EditsBeside
{
    Q_OBJECT

public:
    explicit ConnectorPreview(QWidget* parent);
    ~ConnectorPreview() override;

    /// scene  asked whenever something may have changed
    void setScene(std::function<PreviewScene()> scene) { m_scene = std::move(scene); }
    /// Refreshes whenever a field of the page changes.
    void follow(QWidget const& page);

    /// Something may have changed.
    void refresh();
    /// Shows nothing any more, and asks for no scene: plane and document may go.
    void end();
    /// An object of the document goes.
    void objectGoes(Base::DocumentObject const* object);

    /// Where connectors stand on the parts that were changed by hand; waits for a survey that runs.
    ConnectorPositions positions();

    void clicked(QMouseEvent const& event) override;
    void hovered(QMouseEvent const& event) override;
    std::shared_ptr<void const> edits() const override { return m_choices.state(); }
    void setEdits(std::shared_ptr<void const> const& edits) override;

    SurveyRunner& runner() { return m_runner; }
    QCheckBox* byHandBox() const { return m_byHand; }
    QPushButton* anewButton() const { return m_anew; }
    PresetButton* presets() const { return m_presets; }
    /// What stands under the page.
    QString text() const;
    /// What is drawn; null if nothing ever was.
    ConnectorItem const* item() const { return m_shown.item(); }

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Aim
    {
        std::size_t part;
        /// The connector under the mouse.
        std::optional<std::size_t> connector;
        /// A place of the section, in the plane.
        UPoint3<float> place;
    };

    void ask();
    void show();
    void showText();
    void takeClicks(bool isTaking);
    std::optional<Aim> aimAt(QMouseEvent const& event) const;
    void toggle(Mesh::DocumentObject const* part, ChosenConnector const& connector);
    void addAt(Aim const& aim);
    /// Something was changed by hand.
    void edited();
    void moveTo(Base::GLView* view);
    void retranslate();
    void say(QString const& text) const;

    std::function<PreviewScene()> m_scene;
    QLabel* m_text;
    QCheckBox* m_byHand;
    QPushButton* m_anew;
    PresetButton* m_presets;
    bool m_isAsking = false;
    /// What the surveys are of, as of the last request.
    std::vector<SurveyRequest> m_requests;
    ConnectorChoices m_choices;
    ItemInView<ConnectorItem> m_shown;
    SurveyRunner m_runner;
};

}  // namespace Freecut
