#include "menu/ui/frmDescription.h"

#include <QCheckBox>
#include <QDialog>
#include <QScreen>
#include <QStatusBar>
#include <algorithm>

#include "desktop/ui/Desktop.h"
#include "fakes/FakeDialogs.h"
#include "fakes/ProgramBench.h"
#include "fakes/VirtualClock.h"
#include "menu/DescriptionTable.h"
#include "menu/MenuManager.h"
#include "platform/ProgramFolder.h"
#include "platform/TextFile.h"
#include "platform/qt/QtDatabase.h"
#include "platform/qtwidgets/FlexGridView.h"
#include "radio/SimulatedPorts.h"
#include "ui/Widgets.h"

namespace korvex {
namespace {

/// What outlives the program: the radio, the settings, the program's folder.
struct Shack {
    Shack() {
        const auto table = parseDescription(*textfile::read(SOURCE_DIR "/data/menu-description.tsv"));
        EXPECT_FALSE(database.writeTable(file, std::string(description::password), *table));
    }
    fakes::VirtualClock clock;
    SimulatedPorts ports{clock};
    fakes::FakeSettings settings;
    fakes::TemporaryFolder folder;
    std::string file = folder.file(std::string(descriptionDatabaseName));
    QtDatabase database;
};

/// One sitting at the program, with its Menu Manager open.
struct Sitting {
    explicit Sitting(Shack& theShack) : shack(theShack) {
        program.windows.menuManager.show();
        form = topLevel<frmDescription>("frmDescription");
        grid = find<FlexGridView>("FlexGrid1");
        shack.clock.advance(50);
        QApplication::processEvents();
    }
    template <class T>
    T* find(const char* name) {
        return control<T>(*form, name);
    }
    void openPort() {
        program.terminal.Form_Load();
        program.link.togglePort();
        shack.clock.advance(1'100);
    }
    QPoint middle(int row, int col) {
        cells().setCurrent(row, col);
        grid->scrollToCurrent();
        return grid->cellGeometry(row, col).center() - grid->viewport()->pos();
    }
    void click(Qt::MouseButton button, int row, int col) {
        QTest::mouseClick(grid->viewport(), button, {}, middle(row, col));
    }
    void choose(const char* entry) { korvex::choose(*form, entry); }
    MSFlexGrid& cells() { return program.menuManager.grid; }

    Shack& shack;
    fakes::FakeFileDialog fileDialog;
    fakes::FakeMsgBox msgBox;
    fakes::FakeShell shell;
    Program program{
        {shack.clock, shack.ports, shack.settings, fileDialog, msgBox, shell, shack.database, shack.folder.path()}};
    Desktop desktop{program};
    frmDescription* form = nullptr;
    FlexGridView* grid = nullptr;
};

TEST(MenuManagerForm, AColumnReadFromTheRadioIsStillThereTheNextTime) {
    Shack shack;
    std::string value;
    {
        Sitting run(shack);
        EXPECT_FALSE(run.find<QAction>("mnu_readSettings")->isEnabled());
        run.openPort();
        EXPECT_EQ(run.find<QLabel>("portstatus")->text().toStdString(), "RS232 open ");
        run.cells().setTextMatrix(2, 7, "kept");
        run.click(Qt::RightButton, 3, 8);
        run.msgBox.foresee("Do you like to save the Menu Settings now", MsgAnswer::Yes);
        run.choose("mnu_readSettings");
        run.shack.clock.advance(20'000);
        value = run.cells().TextMatrix(35, 8);  // 029
        EXPECT_EQ(value, "1");
        EXPECT_TRUE(run.program.end());
        const int screen = run.form->screen()->availableGeometry().width();
        EXPECT_GT(run.form->width(), std::min(screen - 20, 1300));  // all columns, as far as the screen goes
        EXPECT_EQ(shack.settings.values["Settings/frmDescriptionWidth"],
                  std::to_string(ToolWindow::twips(run.form->width())));
    }
    Sitting again(shack);
    EXPECT_EQ(again.cells().TextMatrix(35, 8), value);
    EXPECT_EQ(again.cells().TextMatrix(1, 8), "0300");
    EXPECT_EQ(again.cells().TextMatrix(2, 7), "kept");
    EXPECT_EQ(again.cells().TextMatrix(1, 7), "");
}

TEST(MenuManagerForm, CellsOfTheSelectedColumnAreEditedSentAndRetitled) {
    Shack shack;
    Sitting run(shack);
    run.openPort();
    QTest::mouseDClick(run.grid->viewport(), Qt::LeftButton, {}, run.middle(53, 7));
    EXPECT_EQ(run.form->findChild<QLineEdit*>(QStringLiteral("tbFgEdit1")), nullptr);
    run.click(Qt::RightButton, 53, 7);
    run.click(Qt::LeftButton, 53, 7);
    QTest::keyClicks(run.grid, QStringLiteral("0"));
    auto* box = run.find<QLineEdit>("tbFgEdit1");
    ASSERT_TRUE(box && box->isVisible());
    QTest::keyClicks(box, QStringLiteral("6;5"));
    EXPECT_EQ(box->text().toStdString(), "065");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(run.cells().TextMatrix(53, 7), "065");

    EXPECT_EQ(run.form->windowTitle().toStdString(), "Menu Manager - not saved");
    run.choose("mnu_undo");
    EXPECT_EQ(run.cells().TextMatrix(53, 7), "");
    EXPECT_EQ(run.form->windowTitle().toStdString(), "Menu Manager");
    QTest::keyClick(run.grid, Qt::Key_Z, Qt::ControlModifier);  // nothing more to undo, and nothing opens
    EXPECT_FALSE(box->isVisible());
    run.choose("mnu_redo");
    EXPECT_EQ(run.cells().TextMatrix(53, 7), "065");
    QTest::keyClick(run.grid, Qt::Key_F2);
    EXPECT_TRUE(box->isVisible());
    QTest::keyClick(box, Qt::Key_Tab);
    EXPECT_EQ(run.form->focusWidget(), run.grid);
    QTest::keyClick(run.grid, Qt::Key_Tab);
    EXPECT_EQ(run.form->focusWidget(), run.find<QCheckBox>("onlyDiffering"));
    run.find<QCheckBox>("onlyDiffering")->toggle();  // as assistive programs do it
    QApplication::processEvents();
    EXPECT_TRUE(run.cells().isRowHidden(53));
    run.find<QCheckBox>("onlyDiffering")->toggle();
    QApplication::processEvents();
    run.cells().setCurrent(53, 7);
    run.grid->setFocus();

    // "S" sends and opens nothing.
    run.msgBox.foresee("  no changes  ");
    QTest::keyClicks(run.grid, QStringLiteral("s"));
    EXPECT_EQ(control<QLineEdit>(*run.form->statusBar(), "Text1")->text().toStdString(), "EX042;");
    shack.clock.advance(1'000);
    EXPECT_EQ(control<QLineEdit>(*run.form->statusBar(), "Text2")->text().toStdString(), "065");
    EXPECT_EQ(shack.ports.radio().answer("EX042;"), "EX042065;");

    // An edit that is still open is saved too.
    run.click(Qt::LeftButton, 54, 7);
    QTest::keyClicks(run.grid, QStringLiteral("7"));
    run.choose("Flexgrid_toGrid");
    EXPECT_EQ(run.cells().TextMatrix(54, 7), "7");

    // A new value of the radio: the editor of another cell writes back before it goes.
    run.cells().setTextMatrix(53, 7, "1");
    run.click(Qt::LeftButton, 53, 7);
    run.msgBox.foresee("  New Value  065");
    QTest::keyClicks(run.grid, QStringLiteral("r"));
    run.click(Qt::LeftButton, 56, 7);
    QTest::keyClicks(run.grid, QStringLiteral("9"));
    shack.clock.advance(1'000);
    EXPECT_EQ(run.cells().TextMatrix(56, 7), "9");
    EXPECT_EQ(run.cells().TextMatrix(53, 7), "065");
    EXPECT_EQ(run.find<QLabel>("Label1")->grab().toImage().pixelColor(2, 2), QColor(Qt::yellow));

    run.choose("mnu_editTitle");
    auto* dialog = run.find<QDialog>("frmTitle");
    EXPECT_TRUE(dialog->isVisible());
    auto* title = control<QLineEdit>(*dialog, "Text1");
    EXPECT_EQ(title->text().toStdString(), "Settings 1");
    title->setText(QStringLiteral("Contest"));
    click(*dialog, "Command1");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(run.cells().TextMatrix(0, 7), "Contest");
}

TEST(MenuManagerForm, ItsMenuHidesItAndItsCloseBoxEndsTheProgram) {
    Shack shack;
    Sitting run(shack);
    int ended = 0;
    const auto end = run.program.ended.connect([&ended] { ++ended; });
    run.form->resize(600, 500);
    run.choose("mnu_exit");
    EXPECT_FALSE(run.form->isVisible());
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(shack.settings.values["Settings/frmDescriptionWidth"], "9000");
    run.program.windows.menuManager.show();
    EXPECT_TRUE(run.form->isVisible());
    run.form->close();
    EXPECT_EQ(ended, 1);
}

}  // namespace
}  // namespace korvex
