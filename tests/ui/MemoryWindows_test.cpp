#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <gtest/gtest.h>
#include <sstream>

#include "cli/Session.h"
#include "desktop/ui/Desktop.h"
#include "fakes/ProgramBench.h"
#include "memory/ui/frmChannelinfo.h"
#include "memory/ui/frmMem.h"
#include "platform/qtwidgets/FlexGridView.h"
#include "radio/SimulatedPorts.h"

namespace korvex {
namespace {

class MemoryWindows : public testing::Test {
protected:
    MemoryWindows() {
        editor.show();
        list.show();
        bench.clock.advance(1000);
    }
    template <class T>
    static T* find(const QWidget& window, const char* name) {
        auto* found = window.findChild<T*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    void picture(const QWidget& window, const char* name) {
        QApplication::processEvents();
        const auto folder = qEnvironmentVariable("KORVEX_PICTURES");
        if (!folder.isEmpty())
            const_cast<QWidget&>(window).grab().save(folder + QLatin1Char('/') + QLatin1String(name));
    }

    static void key(QWidget* target, int code, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, code, modifiers, text);
        QApplication::sendEvent(target, &event);
    }
    void press(int row, Qt::MouseButton button) {
        const QPointF at = grid->cellGeometry(row, 2).center() - grid->viewport()->pos();
        QMouseEvent event(QEvent::MouseButtonPress, at, grid->viewport()->mapToGlobal(at), button, button, {});
        QApplication::sendEvent(grid->viewport(), &event);
    }

    fakes::ProgramBench<SimulatedPorts> bench;
    CatLink& link = bench.program.link;
    MemoryManager& memory = bench.program.memory;
    frmMem editor{memory, link, bench.program.windows, bench.settings};
    frmChannelinfo list{memory, link, bench.program.windows, bench.settings, {}};
    FlexGridView* grid = find<FlexGridView>(list, "FlexGrid1");
};

TEST_F(MemoryWindows, BoxesHoldTheirDigitsWhateverTheUserTries) {
    auto* txt1 = find<QLineEdit>(editor, "txt1");
    const auto shows = [&](const char* text) {
        EXPECT_EQ(txt1->text().toStdString(), text);
        EXPECT_EQ(memory.editor.txt1.text.get(), text);
    };
    for (const char digit : std::string("14.25")) key(txt1, Qt::Key_0, QString(QLatin1Char(digit)));
    shows("00'001'425");
    key(txt1, Qt::Key_Left);
    key(txt1, Qt::Key_Home, {}, Qt::ShiftModifier);
    key(txt1, Qt::Key_X, QStringLiteral("x"));
    key(txt1, Qt::Key_E, QStringLiteral("\u20AC"), Qt::ControlModifier | Qt::AltModifier);
    shows("00'001'425");
    key(txt1, Qt::Key_9, QStringLiteral("9"));
    shows("00'014'259");
    key(txt1, Qt::Key_Backspace, QStringLiteral("\b"));
    shows("00'001'425");

    QApplication::clipboard()->setText(QStringLiteral("14.250.000"));
    key(txt1, Qt::Key_V, QStringLiteral("\x16"), Qt::ControlModifier);
    shows("14'250'000");
    for (const int undo : {Qt::Key_Z, Qt::Key_Y}) key(txt1, undo, {}, Qt::ControlModifier);
    shows("14'250'000");
    key(txt1, Qt::Key_X, QStringLiteral("\x18"), Qt::ControlModifier);
    shows("00'000'000");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "14'250'000");

    QMimeData dragged;
    dragged.setText(QStringLiteral("7'050'000"));
    QDragEnterEvent enter({1, 1}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(txt1, &enter);
    QDropEvent drop({1, 1}, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(txt1, &drop);
    shows("07'050'000");
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("5a"));
    QApplication::sendEvent(txt1, &composed);
    shows("70'500'005");
    txt1->setText(QStringLiteral("nonsense"));  // as an assistive program may do
    shows("70'500'005");
    key(txt1, Qt::Key_Delete, QStringLiteral("\x7F"));
    shows("00'000'000");
}

TEST_F(MemoryWindows, FormAndListShowOneAnother) {
    find<QComboBox>(editor, "Combo1")->setCurrentIndex(11);
    find<QComboBox>(editor, "Combo8")->setCurrentIndex(10);
    find<QComboBox>(editor, "Combo2")->setCurrentIndex(49);
    find<QComboBox>(editor, "Combo4")->setCurrentIndex(1);
    find<QLineEdit>(editor, "txt1")->setText(QStringLiteral("29620000"));
    find<QLineEdit>(editor, "Text1")->setText(QStringLiteral("Düsseldorf"));
    EXPECT_EQ(find<QLineEdit>(editor, "Text2")->text().toStdString(), "MW01229620000-000000B00490;");
    EXPECT_EQ(find<QLabel>(editor, "MemString")->text().toStdString(), "MW01229620000-000000B00490;");
    find<QPushButton>(editor, "Command1")->click();
    EXPECT_EQ(memory.list.cell(12, MemoryField::Remark), "Düsseldorf");
    auto* remarkText = find<QLineEdit>(editor, "Text1");
    remarkText->setCursorPosition(1);
    remarkText->insert(QStringLiteral("Ω"));
    EXPECT_EQ(remarkText->text().toStdString(), "Düsseldorf");
    EXPECT_EQ(remarkText->cursorPosition(), 1);

    press(1, Qt::LeftButton);
    EXPECT_EQ(find<QComboBox>(editor, "Combo1")->currentText().toStdString(), "1");
    EXPECT_EQ(find<QLineEdit>(editor, "Text1")->text().toStdString(), "Test");
    press(12, Qt::LeftButton);
    EXPECT_EQ(find<QComboBox>(editor, "Combo8")->currentText().toStdString(), "FM(N)");
    key(grid, Qt::Key_C, QStringLiteral("\x03"), Qt::ControlModifier);
    press(13, Qt::RightButton);
    auto* List1 = find<QListWidget>(list, "List1");
    ASSERT_TRUE(List1->isVisible());
    EXPECT_TRUE(list.rect().contains(List1->geometry()));
    picture(list, "list-popup.png");
    EXPECT_EQ(List1->currentRow(), -1);
    key(List1, Qt::Key_Return);  // nothing is chosen
    EXPECT_FALSE(List1->isVisible());
    EXPECT_FALSE(memory.list.filled(13));
    press(13, Qt::RightButton);
    List1->setCurrentRow(4);
    key(List1, Qt::Key_Return);
    EXPECT_FALSE(List1->isVisible());
    EXPECT_EQ(memory.list.cell(13, MemoryField::Channel), "013");
    EXPECT_EQ(memory.list.cell(13, MemoryField::Remark), "Düsseldorf");
    press(12, Qt::RightButton);
    press(14, Qt::LeftButton);
    EXPECT_FALSE(List1->isVisible());
    key(grid, Qt::Key_V, QStringLiteral("v"));
    EXPECT_EQ(memory.list.cell(14, MemoryField::Channel), "014");
}

TEST_F(MemoryWindows, CellsAreEditedInPlaceAndTheFormFollows) {
    list.activateWindow();
    grid->setFocus();
    QApplication::processEvents();
    const auto cellEditor = [this]() -> QWidget* {
        for (auto* widget : list.findChildren<QWidget*>(QStringLiteral("CellEditor"))) {
            if (widget->isVisible()) return widget;
        }
        return nullptr;
    };
    const auto ended = [] {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    key(grid, Qt::Key_Down);
    EXPECT_EQ(memory.editor.channelPlace.get(), 1);
    key(grid, Qt::Key_Return);  // the channel's number is its row's
    EXPECT_EQ(cellEditor(), nullptr);
    key(grid, Qt::Key_Right);
    key(grid, Qt::Key_1, QStringLiteral("1"));
    auto* line = dynamic_cast<QLineEdit*>(cellEditor());
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->accessibleName().toStdString(), "Freq, 2");
    EXPECT_TRUE(list.rect().contains(QRect(line->mapTo(&list, QPoint()), line->size())));
    line->setText(QStringLiteral("14.25"));
    key(line, Qt::Key_Return);
    EXPECT_EQ(cellEditor(), line);  // could be two things
    EXPECT_NE(find<QLabel>(list, "told")->text().indexOf(QStringLiteral("needs a unit")), -1);
    line->setText(QStringLiteral("14.25 MHz"));
    key(line, Qt::Key_Return);
    ended();
    EXPECT_EQ(cellEditor(), nullptr);
    EXPECT_EQ(memory.list.cell(2, MemoryField::Frequency), "14250000");
    EXPECT_EQ(find<QLineEdit>(editor, "txt1")->text().toStdString(), "14'250'000");

    memory.list.grid.setCurrent(2, MemoryList::column(MemoryField::Mode));
    grid->editCurrent();
    auto* codes = dynamic_cast<QComboBox*>(cellEditor());
    ASSERT_NE(codes, nullptr);
    for (const char letter : {'p', 'k', 't', '-', 'f'}) key(codes, Qt::Key_unknown, QString(QLatin1Char(letter)));
    EXPECT_EQ(codes->currentText().toStdString(), "A PKT-FM");
    key(codes, Qt::Key_Escape);
    ended();

    find<QAction>(list, "mnu_readable")->setChecked(true);
    EXPECT_EQ(bench.settings.values["Settings/ChannelinfoReadable"], "True");
    EXPECT_EQ(grid->model()->index(1, 1).data().toString().toStdString(), "14.250.000");
    memory.list.grid.setCurrent(2, MemoryList::column(MemoryField::Mode));
    grid->editCurrent();
    auto* combo = dynamic_cast<QComboBox*>(cellEditor());
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(combo->currentText().toStdString(), "LSB");
    combo->setCurrentIndex(2);
    key(combo, Qt::Key_Return);
    ended();
    EXPECT_EQ(memory.list.cell(2, MemoryField::Mode), "3");
    auto* undo = find<QAction>(list, "mnu_undo");
    EXPECT_EQ(undo->text().toStdString(), "Undo change of Mode, row 2");
    undo->trigger();
    QApplication::processEvents();
    EXPECT_EQ(memory.list.cell(2, MemoryField::Mode), "1");
    EXPECT_TRUE(find<QAction>(list, "mnu_redo")->isEnabled());
}

TEST_F(MemoryWindows, SeveralRowsAreChosenCopiedAndMoved) {
    memory.list.place(3, *parseMemoryString("MW00307050000+000000200080;"));
    memory.list.place(4, *parseMemoryString("MW00407060000+000000200080;"));
    memory.list.grid.setCurrent(3, 2);
    key(grid, Qt::Key_Down, {}, Qt::ShiftModifier);
    EXPECT_EQ(grid->chosenRows(), (std::vector<int>{3, 4}));
    find<QAction>(list, "mnu_copy")->trigger();
    find<QAction>(list, "mnu_moveDown")->trigger();
    QApplication::processEvents();
    EXPECT_EQ(QApplication::clipboard()->text().split(QLatin1Char('\n')).size(), 3);
    EXPECT_EQ(grid->chosenRows(), (std::vector<int>{4, 5}));
    EXPECT_EQ(memory.list.cell(5, MemoryField::Frequency), "07060000");
    find<QAction>(list, "mnu_onlyFilled")->setChecked(true);
    EXPECT_TRUE(grid->isRowHidden(5));
    find<QAction>(list, "mnu_selectAll")->trigger();
    QApplication::processEvents();
    EXPECT_EQ(grid->chosenRows(), (std::vector<int>{1, 4, 5}));
    find<QAction>(list, "mnu_find")->trigger();
    QApplication::processEvents();
    auto* text = find<QLineEdit>(list, "findText");
    EXPECT_TRUE(text->isVisible());
    text->setText(QStringLiteral("7.05"));
    key(text, Qt::Key_Return);
    EXPECT_EQ(memory.list.grid.Row(), 4);
    picture(list, "list-find.png");
    key(text, Qt::Key_Escape);
    EXPECT_FALSE(text->isVisible());
}

TEST_F(MemoryWindows, StartTheSameOperationsAndFollowThePort) {
    const std::vector<QAction*> radioEntries = {
        find<QAction>(editor, "mnu_MemSaveFromFT2000"), find<QAction>(editor, "mnu_MemRestoreTOFT2000"),
        find<QAction>(list, "mnu_MemSaveFromFT2000"), find<QAction>(list, "mnu_MemRestoreTOFT2000")};
    const auto buttonColour = [&] { return find<QPushButton>(editor, "cmd3")->palette().color(QPalette::Button); };
    for (const auto* entry : radioEntries) EXPECT_FALSE(entry->isEnabled());
    EXPECT_EQ(buttonColour(), QColor(Qt::red));

    find<QToolButton>(editor, "imgNotConnected")->click();
    QApplication::processEvents();
    bench.clock.advance(1200);
    for (const auto* entry : radioEntries) EXPECT_TRUE(entry->isEnabled());
    EXPECT_EQ(buttonColour(), QColor(Qt::green));
    EXPECT_EQ(find<QLabel>(editor, "Port")->text().toStdString(), " RS232 open ");
    EXPECT_EQ(find<QLabel>(editor, "Label3")->text().toStdString(), "click to close");

    find<QPushButton>(editor, "cmd3")->click();
    bench.clock.advance(200);
    EXPECT_EQ(find<QLineEdit>(editor, "txt1")->text().toStdString(), "14'074'000");
    radioEntries[2]->trigger();
    QApplication::processEvents();
    EXPECT_TRUE(memory.listReader.running());
    bench.clock.advance(20'000);
    EXPECT_EQ(memory.list.cell(99, MemoryField::Frequency), "18068000");
    picture(list, "list.png");
    EXPECT_EQ(find<QLabel>(editor, "Port")->text().toStdString(), "RS232 closed");

    find<QAction>(list, "mnu_openCloseComPort")->trigger();
    QApplication::processEvents();
    memory.editor.chooseRow(30);
    picture(editor, "mem.png");
    radioEntries[1]->trigger();
    QApplication::processEvents();
    EXPECT_TRUE(memory.listWriter.running());
}

TEST_F(MemoryWindows, MarkUnsavedChangesAndShowWhyNothingCame) {
    EXPECT_EQ(list.windowTitle().toStdString(), "Memory Channel List");
    auto* remarkText = find<QLineEdit>(editor, "Text1");
    remarkText->setText(QStringLiteral("DX, net"));
    EXPECT_EQ(remarkText->text().toStdString(), "Enter Remarks");
    find<QPushButton>(editor, "Command1")->click();
    EXPECT_TRUE(list.isWindowModified());
    EXPECT_EQ(list.windowTitle().toStdString(), "Memory Channel List[*]");
    memory.list.noteSaved();
    EXPECT_EQ(list.windowTitle().toStdString(), "Memory Channel List");

    auto* hint = find<QLabel>(editor, "Hint");
    EXPECT_FALSE(hint->isVisible());
    bench.openPort();
    find<QComboBox>(editor, "Combo1")->setCurrentIndex(5);  // empty in the radio
    find<QPushButton>(editor, "cmd3")->click();
    bench.clock.advance(300);
    EXPECT_TRUE(hint->isVisible());
    EXPECT_LE(editor.height(), 450);
    picture(editor, "refused.png");
}

TEST_F(MemoryWindows, OpenWholeAndRememberTheirPlaces) {
    EXPECT_EQ(editor.size(), QSize(411, 442));
    EXPECT_EQ(list.size(), QSize(700, 567));
    EXPECT_LE(grid->sizeOfWholeGrid().width() + grid->verticalScrollBar()->sizeHint().width(), list.width());
    for (const auto* combo : editor.findChildren<QComboBox*>()) EXPECT_FALSE(combo->accessibleName().isEmpty());
    for (const auto* box : editor.findChildren<QLineEdit*>()) EXPECT_FALSE(box->accessibleName().isEmpty());
    int closed = 0;
    const auto counted = memory.buttonBackToNormal.connect([&] { ++closed; });
    list.resize(600, 400);
    find<QAction>(list, "mnu_closeWindow")->trigger();
    QApplication::processEvents();
    editor.close();
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(bench.settings.values["Settings/ChannelinfoHeight"], "6000");
    EXPECT_EQ(bench.settings.values["Settings/MemoryWidth"], "6165");
    EXPECT_EQ(bench.settings.values["Settings/SavePath3"], bench.folder.path() + "/files");
    EXPECT_FALSE(link.indicators().memoryEditorVisible);
}

/// The whole program with its windows, on the simulated radio.
TEST(MemoryManagerFromTheStartWindow, SavesWhatTheCommandLineCarriesOn) {
    fakes::ProgramBench<SimulatedPorts> bench;
    Program& program = bench.program;
    Desktop desktop(program);
    desktop.showStartWindow();
    const auto window = [](const char* name) -> QWidget* {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == QLatin1String(name)) return widget;
        }
        return nullptr;
    };
    const auto trigger = [&](const char* form, const char* entry) {
        window(form)->findChild<QAction*>(QLatin1String(entry))->trigger();
        QApplication::processEvents();
    };
    program.startWindow.Command1_Click(StartWindow::MemoryManager);
    bench.clock.advance(400);
    for (const char* name : {"frmMem", "frmChannelinfo", "frmTerm"}) EXPECT_TRUE(window(name)->isVisible()) << name;
    EXPECT_EQ(window("frmMem")->findChild<QLabel*>(QStringLiteral("Port"))->text().toStdString(), "ComPort closed");

    trigger("frmChannelinfo", "mnu_openCloseComPort");
    bench.clock.advance(1200);
    const std::string saved = bench.folder.file("saved.mem");
    bench.fileDialog.choose(saved);
    trigger("frmTerm", "mnu_saveMem");
    bench.clock.advance(20'000);
    trigger("frmMem", "mnu_Ende");
    EXPECT_FALSE(window("frmMem")->isVisible());
    program.link.closePort();

    cli::NoFileDialog given;
    std::ostringstream output;
    const auto korvexctl = [&](const char* verb, const std::string& file) {
        Program another({bench.clock, bench.ports, bench.settings, given, bench.msgBox, bench.shell, bench.database,
                         bench.folder.path()});
        cli::Session session(another, *cli::parseArguments({verb, "memory", file}), {output, output});
        std::optional<cli::ExitCode> code;
        const auto finished = session.finished.connect([&](cli::ExitCode result) { code = result; });
        session.start();
        bench.clock.advance(90'000);
        return code;
    };
    for (auto& channel : bench.ports.radio().state.memories) channel.reset();
    const std::string again = bench.folder.file("again.mem");
    EXPECT_EQ(korvexctl("restore", saved), cli::ExitCode::Done);
    EXPECT_EQ(korvexctl("save", again), cli::ExitCode::Done);
    EXPECT_EQ(fakes::fileContent(again), fakes::fileContent(saved));
    EXPECT_GT(fakes::fileContent(saved).size(), 100U);
}

}  // namespace
}  // namespace korvex
