// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ui/CutViewSlider.h"
#include "platform/ui/DialogWidgetGroup.h"
#include "platform/ui/DialogWidgetGroup2rd.h"
#include "platform/ui/DialogWidgetOneOff.h"
#include "platform/ui/DialogWindowManager.h"
#include "platform/ui/MainWindow.h"
#include "platform/ui/MellGridLayout.h"
#include "platform/ui/MellHBoxLayout.h"
#include "platform/ui/MellLineEdit.h"
#include "platform/ui/MellMessageBox.h"
#include "platform/ui/MellQuantitySpinBox.h"
#include "platform/ui/MellSpinBox.h"
#include "platform/ui/MellVBoxLayout.h"
#include "platform/ui/OrbeMenu.h"
#include "platform/ui/PushButtonAnimate.h"
#include "platform/ui/SeparateLine.h"
#include "platform/ui/Theme.h"
#include "platform/ui/ThemeSwitch.h"
#include "tests/support/Places.h"
#include "tests/support/ScratchSettings.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QSlider>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>
#include <QTreeWidget>

#include <set>

namespace {

MellQuantitySpinBox* lengthBox(double value)
{
    auto* const box = new MellQuantitySpinBox;
    box->setUnit(Base::Unit(1));
    box->setRange(-1e6, 1e6);
    box->setAlignment(Qt::AlignRight);
    box->setValue(value);
    return box;
}

QWidget* planeContent()
{
    auto* const content = new QWidget;
    auto* const grid = new MellGridLayout(content);
    grid->addWidget(new QLabel("Notch depth(D)"), 0, 0);
    grid->addWidget(lengthBox(3), 0, 1);
    grid->addWidget(new QLabel("Side distance(SD)"), 1, 0);
    grid->addWidget(lengthBox(-12.7), 1, 1);
    auto* const disabled = lengthBox(4);
    disabled->setEnabled(false);
    grid->addWidget(new QLabel("Disabled"), 2, 0);
    grid->addWidget(disabled, 2, 1);
    auto* const count = new MellSpinBox;
    count->setValue(4);
    grid->addWidget(new QLabel("Count"), 3, 0);
    grid->addWidget(count, 3, 1);
    auto* const slider = new CutViewSlider(nullptr);
    slider->setRange(0, 100);
    slider->setValue(35);
    grid->addWidget(slider, 4, 0, 1, 2);
    return content;
}

QWidget* choices()
{
    auto* const content = new QWidget;
    auto* const grid = new MellGridLayout(content);
    auto* const on = new QCheckBox("Remove original part(s)");
    on->setChecked(true);
    auto* const partly = new QCheckBox("Partly");
    partly->setCheckState(Qt::PartiallyChecked);
    auto* const off = new QCheckBox("Disabled");
    off->setChecked(true);
    off->setEnabled(false);
    auto* const all = new QRadioButton("All parts");
    all->setChecked(true);
    grid->addWidget(on, 0, 0);
    grid->addWidget(new QCheckBox("Use plane boundary"), 0, 1);
    grid->addWidget(partly, 1, 0);
    grid->addWidget(off, 1, 1);
    grid->addWidget(all, 2, 0);
    grid->addWidget(new QRadioButton("Selected parts"), 2, 1);
    auto* const box = new QComboBox;
    box->addItems({"Connector Pins/Holes", "Lap Joint"});
    grid->addWidget(box, 3, 0);
    grid->addWidget(new MellLineEdit("bracket_cut"), 3, 1);
    auto* const slider = new QSlider(Qt::Horizontal);
    slider->setValue(60);
    grid->addWidget(slider, 4, 0);
    auto* const bar = new QProgressBar;
    bar->setValue(42);
    grid->addWidget(bar, 4, 1);
    return content;
}

class GalleryDialog : public DialogWidgetOneOff
{
public:
    explicit GalleryDialog(QWidget* parent) : DialogWidgetOneOff(parent, false)
    {
        setWindowTitle("Section Cut");
        setMaxRestoreEnable(true);
        auto* const content = new MellVBoxLayout;
        int const margin = themePixels("dialogWidegtMargin");
        content->setContentsMargins(margin, 0, margin, margin);
        content->setSpacing(margin);
        auto* const inner = new QWidget;
        auto* const column = new MellVBoxLayout(inner);
        column->addWidget(new DialogWidgetGroup2rd("Plane Normal", planeContent(), true, nullptr));
        column->addWidget(new DialogWidgetGroup2rd("Plane Size", new QLabel, false, nullptr));
        content->addWidget(new DialogWidgetGroup("Plane", inner, "", true, nullptr));
        content->addWidget(new DialogWidgetGroup("Options", choices(), "", true, nullptr));
        content->addWidget(new DialogWidgetGroup("Advanced", new QLabel, "", false, nullptr));
        auto* const tabs = new QTabWidget;
        tabs->addTab(new QLabel("Jagged"), "Jagged");
        tabs->addTab(new QLabel("Dove Tailed"), "Dove Tailed");
        tabs->addTab(new QLabel("Puzzle"), "Puzzle");
        content->addWidget(tabs);
        content->addWidget(new SeparateLine);
        mainLayout()->insertLayout(0, content);
        auto* const ok = new PushButtonAnimate("OK", this);
        ok->setDefault(true);
        buttonLayout()->addWidget(ok);
        buttonLayout()->addWidget(new PushButtonAnimate("Cancel", this));
        auto* const disabled = new PushButtonAnimate("Apply", this);
        disabled->setEnabled(false);
        buttonLayout()->addWidget(disabled);
    }

    static void* create(QWidget* parent) { return new GalleryDialog(parent); }
};

void fill(MainWindow& window)
{
    auto* const file = new OrbeMenu("&File");
    window.menuBar()->addMenu(file);
    window.menuBar()->addMenu(new OrbeMenu("&Edit", &window));
    file->setParent(&window, Qt::Popup);
    QToolBar* const bar = window.addToolBar("Tools");
    bar->addAction("Open");
    QAction* const checked = bar->addAction("Wireframe");
    checked->setCheckable(true);
    checked->setChecked(true);
    bar->addSeparator();
    bar->addAction("Disabled")->setEnabled(false);
    auto* const tree = new QTreeWidget;
    tree->setHeaderLabels({"Part", "Triangles"});
    for (int i = 0; i < 3; ++i) {
        auto* const group = new QTreeWidgetItem(tree, {QString("Group %1").arg(i), ""});
        for (int part = 0; part < 3; ++part) {
            auto* const item =
                new QTreeWidgetItem(group, {QString("bracket_%1").arg(part), "1234"});
            item->setCheckState(0, part % 2 ? Qt::Checked : Qt::Unchecked);
        }
        group->setExpanded(i == 0);
    }
    tree->topLevelItem(1)->setSelected(true);
    auto* const log = new QPlainTextEdit("Cut by a plane at 12.5 mm.\nTwo pieces.");
    log->appendPlainText(QString("line\n").repeated(40));
    auto* const central = new QWidget;
    auto* const column = new MellVBoxLayout(central);
    column->addWidget(tree);
    column->addWidget(log);
    window.setCentralWidget(central);
    window.statusBar()->showMessage("Click a point on a part.");
}

QImage picture(QWidget& widget, int ratio)
{
    QImage image(widget.size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    widget.render(&image, QPoint(), QRegion(),
                  QWidget::DrawWindowBackground | QWidget::DrawChildren);
    return image;
}

int coloursIn(QImage const& image)
{
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y));
    return static_cast<int>(colours.size());
}

}  // namespace

/// The pictures lie beside the programs, to be looked at.
TEST(Gallery, ShowsAllWidgetsInBothThemesAndPixelRatios)
{
    ScratchSettings const settings;
    QDir const folder(QString::fromStdString(builtPath("")));
    for (bool const isDark : {false, true}) {
        ThemeSwitch::setTheme(isDark ? ThemeSwitch::Choice::Dark : ThemeSwitch::Choice::Light);
        MainWindow window;
        fill(window);
        window.resize(1000, 1150);
        window.show();
        auto& manager = *DialogWindowManager::instance();
        auto* const dialog = manager.creatDialogWindow("Gallery", GalleryDialog::create);
        manager.activateDialog(dialog);
        MellMessageBox box(&window);
        box.setWindowTitle("Attention");
        box.setText(
            "One or more parts have support(s).The support(s) will be deleted. Do you want to "
            "continue your operation?");
        box.setStandardButtons(QDialogButtonBox::Yes | QDialogButtonBox::Cancel);
        box.setDefaultButton(QDialogButtonBox::Yes);
        box.show();
        OrbeMenu menu;
        menu.addAction("Open")->setShortcut(QKeySequence("Ctrl+O"));
        menu.addAction("Disabled")->setEnabled(false);
        menu.addSeparator();
        QAction* const grid = menu.addAction("Show grid");
        grid->setCheckable(true);
        grid->setChecked(true);
        menu.addMenu("Recent files")->addAction("bracket.stl");
        menu.ensurePolished();
        menu.resize(menu.sizeHint());
        QApplication::processEvents();
        for (int const ratio : {1, 2}) {
            QString const name = QString("gallery_%1_%2").arg(isDark ? "dark" : "light").arg(ratio);
            QImage const image = picture(window, ratio);
            EXPECT_TRUE(image.save(folder.filePath(name + ".png")));
            EXPECT_TRUE(picture(box, ratio).save(folder.filePath(name + "_message.png")));
            EXPECT_TRUE(picture(menu, ratio).save(folder.filePath(name + "_menu.png")));
            EXPECT_GT(coloursIn(image), 20);
            int const lightness = image.pixelColor(3, image.height() - 3).lightness();
            EXPECT_EQ(lightness < 128, isDark);
        }
    }
    ThemeSwitch::setTheme(ThemeSwitch::Choice::Light);
}
