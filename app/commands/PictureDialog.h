// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

class MellSpinBox;
class QCheckBox;
class QComboBox;

/// Asks how large a picture of the view is to be and what it has for a ground. The answers are
/// remembered; what the settings hold and nobody can mean counts as the size of the view.
class PictureDialog : public QDialog
{
    Q_OBJECT

public:
    /// viewSize  of the view, in pixels of the device
    PictureDialog(QSize viewSize, QWidget* parent);

    QSize pictureSize() const;
    bool isTransparent() const;

    void accept() override;

private:
    void chooseSize(int index);
    void setSize(QSize size);
    void showChoice();
    void restore();

    QSize m_viewSize;
    QComboBox* m_choice;
    MellSpinBox* m_width;
    MellSpinBox* m_height;
    QCheckBox* m_transparent;
};
