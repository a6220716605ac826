#include "terminal/ui/frmTerm.h"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextLayout>
#include <QToolBar>

#include "cat/ui/frmProperties.h"
#include "desktop/ui/Desktop.h"
#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"
#include "radio/SimulatedPorts.h"
#include "terminal/ui/TrafficView.h"
#include "ui/Widgets.h"

namespace korvex {
namespace {

class TerminalWindow : public testing::Test {
protected:
    using Bench = fakes::ProgramBench<fakes::ScriptedPorts>;

    TerminalWindow() {
        bench.program.terminal.Form_Load();
        window = std::make_unique<frmTerm>(bench.program.terminal, bench.program.windows, bench.settings,
                                           TerminalActions{.saveMenu = [this] { started += "save "; },
                                                           .restoreMenu = [this] { started += "restore "; },
                                                           .saveMemories = {},
                                                           .restoreMemories = {},
                                                           .portSettings = [this] { started += "settings "; },
                                                           .about = [this] { started += "about "; },
                                                           .backupRadio = [this] { started += "backup "; },
                                                           .restoreRadio = [this] { started += "restore "; },
                                                           .checkRadio = [this] { started += "check "; },
                                                           .endProgram = [] { return false; }});
        window->show();
    }
    template <class T>
    T* control(const char* name) {
        return korvex::control<T>(*window, name);
    }
    QPlainTextEdit* pane(const char* name) { return control<QPlainTextEdit>(name); }
    static void settle() { QTest::qWait(2 * TrafficView::batchMs); }

    Bench bench;
    fakes::ScriptedLine& line = bench.ports.plug(1);
    std::string started;
    std::unique_ptr<frmTerm> window;
};

TEST_F(TerminalWindow, EntriesAndButtonsFollowThePort) {
    const auto enabled = [this](const char* name) { return control<QAction>(name)->isEnabled(); };
    const auto radios = {"mnu_Store", "mnu_Restore", "OpenLogFile", "TransmitTextFile"};
    for (const char* name : radios) EXPECT_FALSE(enabled(name));
    EXPECT_EQ(control<QLabel>("Label3")->text(), QStringLiteral("click to open"));
    control<QToolButton>("imgNotConnected")->click();
    settle();
    ASSERT_TRUE(bench.program.link.PortOpen());
    for (const char* name : radios) EXPECT_TRUE(enabled(name));
    EXPECT_FALSE(enabled("mnu_saveMem"));  // nobody has given it anything to do
    EXPECT_TRUE(control<QAction>("mnu_openPort")->isChecked());
    EXPECT_NE(control<QToolButton>("imgConnected"), nullptr);
    control<QAction>("mnu_Store")->trigger();
    control<QAction>("TransmitTextFile")->trigger();
    control<QAction>("Properties")->trigger();
    settle();
    EXPECT_EQ(started, "save restore settings ");
}

/// The entry is the last of its menu, comes back at once, and leads to a backup.
TEST(TerminalEntries, BackupWholeRadio) {
    fakes::ProgramBench<SimulatedPorts> bench;
    writeSetting(bench.settings, keys::checkProposed, true);
    Desktop desktop(bench.program);
    bench.openPort();
    bench.program.windows.terminal.show();
    auto* entry = control<QAction>(*topLevel("frmTerm"), "mnu_BackupRadio");
    const auto* more = qobject_cast<QMenu*>(entry->parent());
    EXPECT_EQ(caption(more->menuAction()), QStringLiteral("More"));
    EXPECT_EQ(more->actions().at(more->actions().size() - 3), entry);
    EXPECT_EQ(more->actions().constLast()->objectName(), QStringLiteral("mnu_CheckRadio"));
    EXPECT_EQ(caption(entry), QStringLiteral("Backup whole Radio..."));
    const std::string dir = bench.folder.file("backups");
    entry->trigger();
    EXPECT_TRUE(bench.fileDialog.shown.empty()) << "an assistive program's call would wait for the dialog";
    bench.fileDialog.choose(dir);
    bench.msgBox.foresee("The backup is in");
    QCoreApplication::processEvents();
    EXPECT_TRUE(bench.clock.advanceUntil([&] { return !bench.msgBox.shown.empty(); }, 200'000));
    EXPECT_TRUE(std::filesystem::exists(dir + "/korvex-2026-11-22-234254/summary.txt"));
    bench.program.end();
}

TEST_F(TerminalWindow, FastTransfersAreTheLastEntryOfThePortMenu) {
    auto* entry = control<QAction>("mnu_fastTransfers");
    EXPECT_EQ(qobject_cast<QMenu*>(entry->parent())->actions().constLast(), entry);
    EXPECT_FALSE(entry->isChecked());
    entry->trigger();
    settle();
    EXPECT_TRUE(entry->isChecked());
    EXPECT_EQ(bench.program.link.pace, Pace::Answered);
}

TEST_F(TerminalWindow, ShowsWhatCameWhateverItIs) {
    bench.program.link.togglePort();
    bench.program.link.clearTraffic();
    line.feed(std::string("FA1;\x01\xE4\x80\r", 8));
    line.feed("\nA\rB;");
    settle();
    EXPECT_EQ(pane("Term2")->toPlainText(), QStringLiteral("FA1;\n\u2401\u00E4\u20AC\nA\u240DB;\n"));
    bench.program.link.clearTraffic();
    line.feed(std::string(2500, 'x'));
    settle();
    EXPECT_EQ(pane("Term2")->document()->blockCount(), 3);  // folded, so that noise stays readable
    for (int i = 0; i < 3 * TrafficView::keptLines; ++i) line.feed("FA14250000;");
    settle();
    EXPECT_LE(pane("Term2")->document()->blockCount(), TrafficView::keptLines);
    EXPECT_TRUE(pane("Term2")->toPlainText().endsWith(QStringLiteral("FA14250000;\n")));
}

TEST_F(TerminalWindow, TypingPastingAndAssistiveProgramsAllSendTheSame) {
    bench.program.link.togglePort();
    bench.clock.advance(2'000);
    bench.program.link.clearTraffic();
    line.forgetWrites();
    auto* sent = pane("term3");
    QTest::keyClicks(sent, QStringLiteral("FBX"));
    QTest::keyClick(sent, Qt::Key_Backspace);
    QTest::keyClick(sent, Qt::Key_Delete);
    QTest::keyClick(sent, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(control<QLabel>("Label1")->text(), QStringLiteral("FB"));
    QApplication::clipboard()->setText(QStringLiteral("1;\n"));
    sent->paste();
    EXPECT_EQ(line.story(), "");
    QTest::keyClick(sent, Qt::Key_Return);
    EXPECT_EQ(line.written(), "FB1;");

    auto* access = QAccessible::queryAccessibleInterface(sent);
    access->editableTextInterface()->insertText(access->textInterface()->characterCount(), QStringLiteral("ID;\n"));
    settle();
    EXPECT_EQ(line.written(), "FB1;ID;");
    EXPECT_EQ(sent->toPlainText(), QStringLiteral("FB1;\nID;\n"));
    control<QPushButton>("cmd3")->click();
    settle();
    EXPECT_EQ(sent->toPlainText(), QString());
}

TEST_F(TerminalWindow, AnAssistiveToggleOfTheToolBarSwitchesThePortAndShowsItsTrueState) {
    auto* button = control<QToolButton>("openPort");
    auto* access = QAccessible::queryAccessibleInterface(button);
    const auto toggle = [&] {
        access->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        settle();
    };
    toggle();
    EXPECT_TRUE(bench.program.link.PortOpen());
    EXPECT_TRUE(access->state().checked && control<QAction>("mnu_openPort")->isChecked());
    button->click();
    settle();
    EXPECT_FALSE(bench.program.link.PortOpen() || access->state().checked);
    line.openFailure = RuntimeError{errors::PortAlreadyOpen, "held"};
    bench.msgBox.foresee("held");
    toggle();
    EXPECT_FALSE(bench.program.link.PortOpen() || access->state().checked ||
                 control<QAction>("mnu_openPort")->isChecked());
    line.openFailure.reset();
    toggle();
    bench.program.link.closePort();
    settle();  // the mark that followed the closing asks for nothing
    EXPECT_FALSE(bench.program.link.PortOpen() || access->state().checked);
}

TEST_F(TerminalWindow, EveryControlHasANameThatAPersonUnderstands) {
    for (const char* name : {"Term2", "term3", "txtPath", "Text2", "cmd3"}) {
        EXPECT_FALSE(control<QWidget>(name)->accessibleName().isEmpty()) << name;
    }
    for (const char* name : {"Status", "Settings", "Error", "ConnectTime", "Label1", "Label3"}) {
        const auto* access = QAccessible::queryAccessibleInterface(control<QLabel>(name));
        EXPECT_FALSE(access->text(QAccessible::Name).isEmpty()) << name;
    }
    bench.program.link.panels().Error = "Reading Menu 7";
    EXPECT_EQ(QAccessible::queryAccessibleInterface(control<QLabel>("Error"))->text(QAccessible::Name),
              QStringLiteral("Reading Menu 7"));
    const auto buttons = control<QToolBar>("tbrToolBar")->findChildren<QToolButton*>();
    for (const auto* button : buttons) {
        EXPECT_TRUE(!button->isVisible() || !button->accessibleName().isEmpty()) << button->objectName().toStdString();
    }
}

TEST_F(TerminalWindow, ATypedLineStaysInViewAndBreaksBehindItsCommands) {
    auto* typed = pane("term3");
    QString commands;
    for (int item = 100; item < 150; ++item) commands += QStringLiteral("EX%1;").arg(item);
    QTest::keyClicks(typed, commands);
    settle();
    const QTextBlock block = typed->document()->firstBlock();
    EXPECT_EQ(typed->document()->blockCount(), 1);
    EXPECT_TRUE(typed->viewport()->rect().contains(typed->cursorRect().center()));
    const int rows = block.layout()->lineCount();
    EXPECT_GT(rows, 2);
    for (int row = 0; row < rows; ++row) {
        const QTextLine shown = block.layout()->lineAt(row);
        QString text = block.text().mid(shown.textStart(), shown.textLength());
        EXPECT_TRUE(text.remove(QChar(0x200B)).endsWith(QLatin1Char(';'))) << text.toStdString();
    }
    typed->selectAll();
    typed->copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), commands) << "no trace of the breaks";
    EXPECT_EQ(bench.program.terminal.transmitBuffer.get(), commands.toStdString());
}

TEST_F(TerminalWindow, ATypedCommandThatIsRefusedIsNamed) {
    bench.openPort();
    bench.program.terminal.term3_Paste("FA;ZZ;");
    bench.program.terminal.term3_KeyPress("\r");
    line.feed("FA14195000;?");
    EXPECT_EQ(bench.error(), "");
    line.feed(";");
    EXPECT_EQ(bench.error(), "The radio refused ZZ;");
    auto* shown = control<QLabel>("Error");
    EXPECT_EQ(shown->text(), QStringLiteral("The radio refused ZZ;")) << "whole, however narrow the panel";
    bench.program.terminal.term3_Paste("FA;");
    bench.program.terminal.term3_KeyPress("\r");
    EXPECT_EQ(bench.error(), "");
}

TEST_F(TerminalWindow, FindMyRadioTakesOverTheDialogUntilItIsDone) {
    line.answer = [](std::string_view wire) { return std::string(wire == "ID;" ? "ID0251;" : ""); };
    line.answerDelay = 700;
    PortSettings logic = bench.program.makePortSettings();
    logic.Form_Load();
    frmProperties dialog(logic, window.get());
    EXPECT_EQ(korvex::control<QLabel>(dialog, "lblDevice")->accessibleName(), QStringLiteral("scripted port 1"));
    click(dialog, "cmdFind");
    bench.clock.advance(100);
    EXPECT_EQ(korvex::control<QPushButton>(dialog, "cmdFind")->text(), QStringLiteral("Cancel"));
    EXPECT_FALSE(korvex::control<QPushButton>(dialog, "cmdOK")->isEnabled());
    dialog.reject();
    EXPECT_FALSE(logic.search.running);
    EXPECT_EQ(dialog.result(), 0) << "the first Escape ends the search alone";
    click(dialog, "cmdFind");
    bench.clock.advance(1000);
    EXPECT_NE(korvex::control<QPlainTextEdit>(dialog, "txtSearch")->toPlainText().indexOf(QStringLiteral("FT-2000")),
              -1);
    click(dialog, "cmdOK");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST_F(TerminalWindow, ThePortSettingsDialogShowsAndStoresTheFormat) {
    ASSERT_FALSE(bench.program.MSComm1.setSettings("9600,e,7,1.5"));
    PortSettings logic = bench.program.makePortSettings();
    logic.Form_Load();
    frmProperties dialog(logic, window.get());
    const auto shown = [&](const char* name) {
        return korvex::control<QComboBox>(dialog, name)->currentText().toStdString();
    };
    EXPECT_EQ(shown("cboSpeed") + shown("cboParity") + shown("cboDataBits") + shown("cboStopBits") + shown("cboPort"),
              "9600Even71.51");
    korvex::control<QComboBox>(dialog, "cboParity")->setCurrentText(QStringLiteral("None"));
    click(dialog, "optFlow_3");
    click(dialog, "cmdOK");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(bench.settings.values["Einstellungen/Einstellungen"], "9600,n,7,1.5");
    EXPECT_EQ(bench.settings.values["Einstellungen/Handshaking"], "3");
}

}  // namespace
}  // namespace korvex
