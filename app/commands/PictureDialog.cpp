// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commands/PictureDialog.h"

#include "app/panels/QuestionForm.h"
#include "host/view/ViewPicture.h"
#include "platform/ui/MellSpinBox.h"
#include "platform/ui/StoredSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>

#include <array>

namespace {

constexpr char widthKey[] = "/Picture/width";
constexpr char heightKey[] = "/Picture/height";
constexpr char transparentKey[] = "/Picture/transparent";
/// Behind the size of the view; any other size comes last.
constexpr std::array<QSize, 4> commonSizes{QSize{1280, 720}, QSize{1920, 1080}, QSize{3840, 2160},
                                           QSize{2048, 2048}};

}  // namespace

PictureDialog::PictureDialog(QSize viewSize, QWidget* parent)
    : QDialog(parent),
      m_viewSize(viewSize),
      m_choice(new QComboBox(this)),
      m_width(new MellSpinBox(this)),
      m_height(new MellSpinBox(this)),
      m_transparent(new QCheckBox(tr("Transparent ground, without the plate"), this))
{
    setWindowTitle(tr("Save Picture"));
    m_choice->addItem(tr("As the view (%1 x %2)").arg(viewSize.width()).arg(viewSize.height()));
    for (QSize const& size : commonSizes)
        m_choice->addItem(QStringLiteral("%1 x %2").arg(size.width()).arg(size.height()));
    m_choice->addItem(tr("Another size"));
    m_width->setObjectName(QStringLiteral("Width"));
    m_height->setObjectName(QStringLiteral("Height"));
    for (MellSpinBox* const side : {m_width, m_height}) {
        side->setRange(smallestPicture, largestPicture);
        side->setSuffix(QStringLiteral(" px"));
        connect(side, qOverload<int>(&QSpinBox::valueChanged), this, &PictureDialog::showChoice);
    }
    connect(m_choice, qOverload<int>(&QComboBox::activated), this, &PictureDialog::chooseSize);
    auto* const form = new QFormLayout;
    form->addRow(tr("Size"), m_choice);
    form->addRow(tr("Width"), m_width);
    form->addRow(tr("Height"), m_height);
    form->addRow(m_transparent);
    layOutQuestion(*this, form, tr("Save..."), tr("Cancel"));
    restore();
}

void PictureDialog::restore()
{
    int const width = storedValue(QLatin1String(widthKey), 0).toInt();
    int const height = storedValue(QLatin1String(heightKey), 0).toInt();
    auto const makesSense = [](int side) {
        return side >= smallestPicture && side <= largestPicture;
    };
    setSize(makesSense(width) && makesSense(height) ? QSize(width, height) : m_viewSize);
    m_transparent->setChecked(storedValue(QLatin1String(transparentKey), false).toBool());
}

void PictureDialog::setSize(QSize size)
{
    m_width->setValue(size.width());
    m_height->setValue(size.height());
    showChoice();
}

void PictureDialog::chooseSize(int index)
{
    if (index == 0)
        setSize(m_viewSize);
    else if (index <= int(commonSizes.size()))
        setSize(commonSizes[std::size_t(index) - 1]);
    else
        m_width->setFocus();
}

void PictureDialog::showChoice()
{
    int index = int(commonSizes.size()) + 1;
    for (std::size_t i = 0; i < commonSizes.size(); ++i)
        if (commonSizes[i] == pictureSize())
            index = int(i) + 1;
    m_choice->setCurrentIndex(pictureSize() == m_viewSize ? 0 : index);
}

QSize PictureDialog::pictureSize() const
{
    return {m_width->value(), m_height->value()};
}

bool PictureDialog::isTransparent() const
{
    return m_transparent->isChecked();
}

void PictureDialog::accept()
{
    // The size of the view is remembered as such: next time it may be another one.
    bool const isViews = pictureSize() == m_viewSize;
    storeValue(QLatin1String(widthKey), isViews ? 0 : m_width->value());
    storeValue(QLatin1String(heightKey), isViews ? 0 : m_height->value());
    storeValue(QLatin1String(transparentKey), isTransparent());
    QDialog::accept();
}
