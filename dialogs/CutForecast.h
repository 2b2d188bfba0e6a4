// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/VolumeSurvey.h"
#include "dialogs/ForecastTexts.h"
#include "dialogs/ItemInView.h"
#include "display/ContourItem.h"
#include "display/NewestWork.h"
#include "tools/ClearanceFit.h"

#include <QWidget>

#include <functional>

class QLabel;

namespace Base {
class DocumentObject;
}

namespace Freecut {

class VolumeGraphicObject;

/// What a cut by a solid tool will do, before it is made: the lines in which the tool meets the parts
/// stand in the view, and a text tells into how many pieces each part will fall, how wide the gaps
/// are, and what the clearance closes.
///
/// It is told of every change by refresh() and looks at the scene once the events are done; where
/// nothing that counts has changed it does nothing. What is told is found in the background, by what
/// cuts; the mouse never waits. Nothing is left in the view when this goes.
class CutForecast : public QWidget
{
    Q_OBJECT

public:
    struct Scene
    {
        /// Borrowed for the event; null for none to cut with.
        VolumeGraphicObject* tool = nullptr;
        Base::GLView* view = nullptr;
        std::vector<Mesh::DocumentObject*> parts;
    };

    explicit CutForecast(QWidget* parent);

    /// scene  asked whenever something may have changed, until end()
    void begin(std::function<Scene()> scene) { m_scene = std::move(scene); }
    /// Shows nothing any more, and asks for no scene: tool and document may go.
    void end();

    /// Something may have changed.
    void refresh();
    /// An object of the document goes, or another mesh has come into it.
    void objectChanges(Base::DocumentObject const* object);
    /// Shows nothing until the next refresh().
    void clear();

    NewestWork const& work() const { return m_work; }
    /// As of the newest request that is done.
    ForecastResult const& result() const { return m_result; }
    /// What it says; empty for nothing.
    QString text() const;
    /// What is drawn; null if nothing is.
    ContourItem const* item() const { return m_lines.item(); }

protected:
    void changeEvent(QEvent* event) override;

private:
    /// The survey of some parts by some tool, as values.
    struct Request
    {
        FitRequest fit;
        VolumeRequest cut;
        QStringList names;

        bool isSame(Request const& other) const;
    };

    void ask();
    Request requestOf(Scene const& scene);
    VolumeRequest::Part partOf(Mesh::DocumentObject* object) const;
    void show();
    void showText();

    std::function<Scene()> m_scene;
    QLabel* m_text;
    bool m_isAsking = false;
    Request m_request;
    ForecastResult m_result;
    ItemInView<ContourItem> m_lines;
    NewestWork m_work;
};

}  // namespace Freecut
