// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QWidget>

class DocumentFollower;
class HeightScale;
class HeightWarning;
class MellQuantitySpinBox;
class QToolButton;

namespace Mesh {
class GLView;
}

/// The height slider beside a view: Base::MellViewSlider to be seen, with a scale, a number field
/// and a button that shows the section line at the height on the parts. The range follows the parts
/// of the active document. The line is shown only while this widget is.
class HeightSlider : public QWidget
{
    Q_OBJECT

public:
    explicit HeightSlider(QWidget* parent = nullptr);
    ~HeightSlider() override;

    /// The view that shows the section line, borrowed; null for none.
    void setView(Mesh::GLView* view);

    /// Whether the section line is wanted; remembered in the settings.
    bool showsLine() const;
    void setShowsLine(bool shows);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void build();
    void retranslate();
    void showIcons();
    void partsChanged();
    void showWholeNumbers(float low, float high);
    void heightChanged(float height);
    void updateLine();
    void warn();

    MellQuantitySpinBox* m_field;
    HeightWarning* m_warning;
    HeightScale* m_scale;
    QToolButton* m_line;
    DocumentFollower* m_follower;
    QPointer<Mesh::GLView> m_view;
};
