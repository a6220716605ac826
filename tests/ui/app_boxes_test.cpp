#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
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

TEST(ProgressView, ShowsTheValuesAndComesAgainAfterItWasClosed) {
    ProgressWindow progress;
    const ProgressView view(progress);
    EXPECT_FALSE(topLevel<QWidget>("frmProgr"));
    progress.caption = "Save Menu of FT-2000";
    progress.maximum = 155;
    progress.value = 31;
    progress.show();
    auto* window = topLevel<QWidget>("frmProgr");
    ASSERT_TRUE(window && window->isVisible());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Save Menu of FT-2000"));
    EXPECT_EQ(window->size(), QSize(305, 87));
    const auto* bar = window->findChild<QProgressBar*>(QStringLiteral("ProgressBar1"));
    EXPECT_EQ(bar->maximum(), 155);
    EXPECT_EQ(bar->value(), 31);
    progress.value = 160;  // counters may run past the end
    EXPECT_EQ(bar->value(), 155);

    window->close();
    EXPECT_FALSE(window->isVisible());
    progress.show();
    EXPECT_TRUE(window->isVisible());
    progress.hide();
    EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace korvex
