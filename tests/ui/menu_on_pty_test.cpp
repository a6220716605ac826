#include <QAction>
#include <QApplication>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <algorithm>
#include <gtest/gtest.h>

#include "app/Program.h"
#include "desktop/ui/Desktop.h"
#include "fakes/ProgramBench.h"
#include "fakes/SimulatorProcess.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtSerialPorts.h"
#include "radio/SimulatedPorts.h"

namespace korvex {
namespace {

/// The real windows on a real serial line; only the dialogs are played.
class WindowsOnPty : public testing::Test {
protected:
    fakes::TemporaryFolder folder;
    fakes::SimulatorProcess radio{std::string(BINARY_DIR) + "/ft2000sim"};
    QtClock clock;
    fakes::FakeSettings settings;
    fakes::FakeFileDialog fileDialog;
    fakes::FakeMsgBox msgBox;
    fakes::FakeShell shell;
    fakes::FakeDatabase database;
    QtSerialPorts ports{settings, {{1, radio.device()}}};
    Program program{{clock, ports, settings, fileDialog, msgBox, shell, database, folder.path()}};
    Desktop desktop{program};

    void SetUp() override {
        desktop.showStartWindow();
        window("frmUtilities")->findChild<QWidget*>(QStringLiteral("Command1_0"))->setFocus();
        program.startWindow.Command1_Click(StartWindow::Terminal);
        ASSERT_TRUE(until([this] { return program.windows.terminal.visible.get(); }, 2'000));
        entry("mnu_openPort")->trigger();
        ASSERT_TRUE(until([this] { return shown("Term2").contains(QStringLiteral("Communication OK")); }, 3'000));
    }
    bool until(const std::function<bool()>& done, int limitMs) {
        for (int waited = 0; waited < limitMs && !done(); waited += 20) clock.letEventsRun(20);
        return done();
    }
    static QWidget* window(const char* name) {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == QLatin1String(name)) return widget;
        }
        return nullptr;
    }
    static QAction* entry(const char* name) { return window("frmTerm")->findChild<QAction*>(QLatin1String(name)); }
    static QString shown(const char* pane) {
        return window("frmTerm")->findChild<QPlainTextEdit*>(QLatin1String(pane))->toPlainText();
    }
    bool terminated() { return program.link.panels().Error.get() == "Terminated"; }
};

TEST_F(WindowsOnPty, SaveTheMenuAndRestoreItIntoAChangedRadio) {
    const std::string first = folder.file("first.mnu");
    fileDialog.choose(first);
    EXPECT_TRUE(entry("mnu_Store")->isEnabled());
    entry("mnu_Store")->trigger();
    ASSERT_TRUE(until([this] { return terminated(); }, 20'000)) << program.link.panels().Error.get();
    const std::string content = fakes::fileContent(first);
    SimulatedRadio fresh;
    std::string expected;
    for (int item = 1; item <= menuItemCount; ++item) expected += fresh.answer(menuReadCommand(item)) + "\r\n";
    EXPECT_EQ(content, expected);

    program.link.send("EX042099;EX0280;");
    fileDialog.choose(first);
    msgBox.foresee("CAT settings", MsgAnswer::Yes);
    entry("mnu_Restore")->trigger();
    ASSERT_TRUE(until([this] { return program.menuRestore.running(); }, 2'000));
    EXPECT_TRUE(until([] { return shown("Term2").contains(QStringLiteral("EX0")); }, 2'000));
    ASSERT_TRUE(until([this] { return terminated(); }, 20'000));
    const std::string second = folder.file("second.mnu");
    fileDialog.choose(second);
    entry("mnu_Store")->trigger();
    program.link.panels().Error = "";
    ASSERT_TRUE(until([this] { return terminated(); }, 20'000));
    EXPECT_EQ(fakes::fileContent(second), content);
    EXPECT_TRUE(program.end());
}

}  // namespace
}  // namespace korvex
