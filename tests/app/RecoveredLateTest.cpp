// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recovery/RecoveryFolder.h"
#include "app/recovery/RecoveryState.h"
#include "tests/app/AppWindow.h"
#include "tests/formats/ScratchFolder.h"

#include <QPushButton>
#include <QTimer>

namespace {

/// Presses a button of the recovery question once it is there, and counts the questions.
class AnsweredOffer
{
public:
    AnsweredOffer()
    {
        QObject::connect(&m_watch, &QTimer::timeout, [this] {
            QWidget* const dialog = QApplication::activeModalWidget();
            if (!dialog)
                return;
            for (QPushButton* const button : dialog->findChildren<QPushButton*>())
                if (button->text() == "Later" && button->isVisible()) {
                    ++count;
                    return button->click();
                }
        });
        m_watch.start(20);
    }
    int count = 0;

private:
    QTimer m_watch;
};

class RecoveredLate : public AppWindow
{
};

}  // namespace

// The lock of a killed program may be there for some seconds more.
TEST_F(RecoveredLate, WorkThatIsLockedAtTheStartIsOfferedOnceTheLockIsGone)
{
    ScratchFolder const folder;
    auto const root = folder / "recovery";
    test->add(box(1, 2, 3), "part");
    std::unique_ptr<RecoveryFolder> held = RecoveryFolder::make(root);
    held->write(recoveryStateOf(*test->document, "/a/gear.3mf"));
    show();
    AnsweredOffer const offer;
    window->keepUnsavedWork(root);
    QCoreApplication::processEvents();
    EXPECT_EQ(offer.count, 0);
    held.reset();
    EXPECT_TRUE(waitUntil([&] { return offer.count > 0; }));
    EXPECT_EQ(offer.count, 1);
    EXPECT_FALSE(RecoveryFolder::leftOver(root).empty()) << "later means kept";
}
