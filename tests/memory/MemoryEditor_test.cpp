#include "MemoryBench.h"

namespace korvex {
namespace {

class MemoryEditorTest : public MemoryBench {
protected:
    MemoryEditor& editor = memory.editor;

    void openEditor() {
        editor.Form_Load();
        clock.advance(1000);
    }
    std::string label(MemoryField field) { return std::string(editor.codes(field).label(editor.choice(field))); }
};

TEST_F(MemoryEditorTest, EveryChangeRebuildsTheCommand) {
    editor.Form_Load();
    EXPECT_EQ(editor.Text2.get(), "MW00100000000+000000100000;");
    clock.advance(999);
    editor.loadEditorFromList();  // not before the window stands
    EXPECT_EQ(editor.Text1.get(), "Enter Remarks");
    clock.advance(1);
    editor.loadEditorFromList();
    EXPECT_EQ(editor.Text1.get(), "Test");

    editor.Combo1_Click(6);
    EXPECT_EQ(editor.Text2.get(), "MW00700000000+000000100000;");
    editor.txt1.paste("14250000");
    editor.txt2.type('5');
    editor.choose(MemoryField::ClarifierDirection, 1);
    editor.choose(MemoryField::RxClarifier, 1);
    editor.choose(MemoryField::Mode, 11);
    editor.choose(MemoryField::CtcssMode, 2);
    editor.choose(MemoryField::ToneNumber, 8);
    editor.choose(MemoryField::Shift, 2);
    EXPECT_EQ(editor.Text2.get(), "MW00714250000-000510C02082;");
    editor.choose(MemoryField::Mode, 12);
    editor.Combo1_Click(99);
    editor.Combo1_Click(-1);
    EXPECT_EQ(editor.Text2.get(), "MW00714250000-000510C02082;");

    EXPECT_FALSE(editor.Text1_Change("Düsseldorf"));
    EXPECT_TRUE(editor.Text1_Change("Düsseldorf Ω"));
    editor.Command1_Click();
    EXPECT_EQ(memory.list.cell(7, MemoryField::Channel), "007");
    EXPECT_EQ(memory.list.cell(7, MemoryField::Shift), "2");
    EXPECT_EQ(memory.list.cell(7, MemoryField::Remark), "Düsseldorf");
}

TEST_F(MemoryEditorTest, LoadsRowsAndCarriesCodesThatItDoesNotKnow) {
    openEditor();
    memory.list.replaceAll({{7, *parseMemoryString("MW00707050000-123401B71492;seven")},
                            {8, *parseMemoryString("MW00807050000 ab;d;;D0x99y;")}});
    int commands = 0;
    const auto counted = editor.Text2.changed.connect([&](const std::string&) { ++commands; });
    editor.chooseRow(7);
    EXPECT_EQ(commands, 1);
    EXPECT_EQ(editor.Combo1.get(), 6);
    EXPECT_EQ(editor.txt1.text.get(), "07'050'000");
    EXPECT_EQ(editor.txt2.text.get(), "1'234");
    EXPECT_EQ(label(MemoryField::ClarifierDirection), "-");
    EXPECT_EQ(label(MemoryField::Mode), "FM(N)");
    EXPECT_EQ(label(MemoryField::CtcssMode), "ENC/DEC");
    EXPECT_EQ(label(MemoryField::ToneNumber), "254.1");
    EXPECT_EQ(label(MemoryField::Shift), "Minus");
    EXPECT_EQ(editor.Text1.get(), "seven");
    EXPECT_EQ(editor.Text2.get(), "MW00707050000-123401B01492;");  // the fixed digit is always "0" here

    editor.chooseRow(8);  // damaged: still one command of 27 characters
    EXPECT_EQ(editor.Text2.get(), "MW00807050000+000000D0x99y;");
    EXPECT_EQ(label(MemoryField::Mode), "");
    editor.chooseRow(9);
    EXPECT_EQ(editor.Text2.get(), "MW00900000000+000000100000;");
    editor.chooseRow(0);
    EXPECT_EQ(editor.Combo1.get(), 8);
}

TEST_F(MemoryEditorTest, ReadsAndWritesOneChannel) {
    openEditor();
    editor.cmd2_Click();
    editor.cmd3_Click();
    EXPECT_EQ(link.activeOperation(), ActiveOperation::Idle);  // closed: nothing

    openPort();
    editor.chooseRow(2);
    editor.cmd3_Click();
    clock.advance(200);
    EXPECT_EQ(editor.Text2.get(), "MW00207030000-012510300000;");
    EXPECT_EQ(memory.list.cell(2, MemoryField::Channel), "002");

    editor.choose(MemoryField::Mode, 6);
    editor.cmd2_Click();
    clock.advance(200);
    EXPECT_EQ(record(2), "07030000-012510700000");
    EXPECT_EQ(memory.list.cell(2, MemoryField::Mode), "7");

    editor.txt1.clear();  // the radio refuses a channel without frequency, and tells what it still holds
    editor.cmd2_Click();
    clock.advance(200);
    EXPECT_EQ(editor.txt1.text.get(), "07'030'000");

    ports.faults().unasked = true;  // the dial is turned meanwhile
    editor.chooseRow(6);            // empty in the radio
    memory.list.setCell(6, MemoryField::Frequency, "14000000");
    editor.cmd3_Click();
    clock.advance(300);
    EXPECT_FALSE(memory.list.filled(6));
    EXPECT_EQ(editor.txt1.text.get(), "00'000'000");
}

TEST_F(MemoryEditorTest, KeepsListsInFilesAndFollowsALoadedOne) {
    openEditor();
    memory.list.replaceAll({{1, *parseMemoryString("MW00107050000-123401B01492;\xDC"
                                                   "ber")}});
    fileDialog.choose(path("list.mef"));
    EXPECT_EQ(memory.listFiles.saveListFile(), TransferEnd::Done);
    EXPECT_EQ(contentOf("list.mef"),
              "MW00107050000-123401B01492;\xDC"
              "ber\r\n\r\n");
    EXPECT_EQ(memory.listFiles.txtPath.get(), path("list.mef"));

    memory.list.clearRow(1);
    fileDialog.choose(path("list.mef"));
    EXPECT_EQ(memory.listFiles.loadListFile(), TransferEnd::Done);
    EXPECT_EQ(editor.Text1.get(), "Über");
    EXPECT_FALSE(memory.list.FlexGrid1.CellBackColor(1, 1));
    EXPECT_EQ(fileDialog.shown.back().start, path("list.mef"));

    fileDialog.choose(path("gone/list.mef"));
    msgBox.foresee("");
    EXPECT_EQ(memory.listFiles.loadListFile(), TransferEnd::FileFailed);
    EXPECT_EQ(msgBox.shown.back().title, "Path wrong ");
    EXPECT_TRUE(memory.list.filled(1));

    editor.Text1 = "Ω";
    editor.Command1_Click();
    msgBox.foresee("\"Ω\"");
    EXPECT_EQ(memory.listFiles.saveListFile(), TransferEnd::FileFailed);
    EXPECT_EQ(contentOf("list.mef"),
              "MW00107050000-123401B01492;\xDC"
              "ber\r\n\r\n");
    fileDialog.cancel();
    EXPECT_EQ(memory.listFiles.loadListFile(), TransferEnd::Cancelled);
    memory.listFiles.storePath();
    EXPECT_EQ(settings.values["Settings/SavePath3"], path("gone/list.mef"));
}

}  // namespace
}  // namespace korvex
