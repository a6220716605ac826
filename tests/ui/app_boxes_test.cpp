#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "app/ui/frmAbout.h"
#include "app/ui/frmProgr.h"
#include "fakes/FakeDialogs.h"

namespace korvex {
namespace {

template <class T>
T* topLevel(const char* objectName) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String(objectName)) return dynamic_cast<T*>(window);
    }
    return nullptr;
}

TEST(AboutBox, TellsWhatTheProgramIsAndLetsGo) {
    fakes::FakeShell shell;
    fakes::FakeMsgBox boxes;
    QWidget owner;
    showAbout(&owner, "/proc/self/exe", shell, boxes);
    auto* box = topLevel<frmAbout>("frmAbout");
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->isModal());
    const auto shown = [&](const char* name) { return box->findChild<QLabel*>(QLatin1String(name))->text(); };
    EXPECT_TRUE(shown("lblVersion").startsWith(QStringLiteral(" Release  ")));
    EXPECT_EQ(shown("lblBuilt").size(), 17);
    EXPECT_TRUE(shown("lblDisclaimer").contains(QStringLiteral("ausschließlich")));
    // No line of the list breaks within a tool's name.
    const auto* description = box->findChild<QLabel*>(QStringLiteral("lblDescription"));
    EXPECT_EQ(description->heightForWidth(description->width()), 3 * description->fontMetrics().lineSpacing());

    box->findChild<QPushButton*>(QStringLiteral("cmdSysInfo"))->click();
    QApplication::processEvents();
    EXPECT_EQ(shell.started, std::vector<std::string>{"system information"});
    box->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(topLevel<frmAbout>("frmAbout"));
}

TEST(ProgressView, ShowsTheValuesAndCancelsByButtonEscapeAndCloseBox) {
    ProgressWindow progress;
    const ProgressView view(progress);
    int cancelled = 0;
    const Connection counting = progress.cancelled.connect([&] { ++cancelled; });
    EXPECT_FALSE(topLevel<QWidget>("frmProgr"));
    progress.caption = "Restore Menu Settings to FT-2000, with a caption that is wider than the window";
    progress.maximum = 155;
    progress.value = 31;
    progress.detail = "item 31 of 149, about 12 s left";
    progress.cancellable = true;
    QWidget inUse;
    inUse.setGeometry(0, 0, 400, 300);
    inUse.show();
    QApplication::setActiveWindow(&inUse);
    progress.show();
    auto* window = topLevel<QWidget>("frmProgr");
    ASSERT_TRUE(window && window->isVisible());
    EXPECT_GT(window->width(), QFontMetrics(window->font()).horizontalAdvance(window->windowTitle()));
    EXPECT_FALSE(window->geometry().intersects(inUse.frameGeometry()));
    EXPECT_EQ(window->findChild<QLabel*>(QStringLiteral("lblDetail"))->text().toStdString(), progress.detail.get());
    const auto* bar = window->findChild<QProgressBar*>(QStringLiteral("ProgressBar1"));
    EXPECT_EQ(bar->maximum(), 155);
    EXPECT_EQ(bar->value(), 31);
    progress.value = 160;  // counters may run past the end
    EXPECT_EQ(bar->value(), 155);

    auto* button = window->findChild<QPushButton*>(QStringLiteral("cmdCancel"));
    button->click();
    QApplication::processEvents();
    EXPECT_EQ(cancelled, 1);
    QTest::keyClick(&inUse, Qt::Key_Escape);
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_EQ(cancelled, 3);
    window->close();
    EXPECT_EQ(cancelled, 4);
    EXPECT_FALSE(window->isVisible());

    progress.cancellable = false;
    progress.show();
    EXPECT_FALSE(button->isEnabled());
    QTest::keyClick(&inUse, Qt::Key_Escape);
    EXPECT_EQ(cancelled, 4);
    progress.hide();
    EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace korvex
