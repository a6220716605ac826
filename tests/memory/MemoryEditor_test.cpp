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
    EXPECT_EQ(editor.writeCommand.get(), "MW00100000000+000000100000;");
    clock.advance(999);
    editor.loadEditorFromList();  // not before the window stands
    EXPECT_EQ(editor.remarkText.get(), "Enter Remarks");
    clock.advance(1);
    editor.loadEditorFromList();
    EXPECT_EQ(editor.remarkText.get(), "Test");

    editor.Combo1_Click(6);
    EXPECT_EQ(editor.writeCommand.get(), "MW00700000000+000000100000;");
    editor.txt1.paste("14250000");
    editor.txt2.type('5');
    editor.choose(MemoryField::ClarifierDirection, 1);
    editor.choose(MemoryField::RxClarifier, 1);
    editor.choose(MemoryField::Mode, 11);
    editor.choose(MemoryField::CtcssMode, 2);
    editor.choose(MemoryField::ToneNumber, 8);
    editor.choose(MemoryField::Shift, 2);
    EXPECT_EQ(editor.writeCommand.get(), "MW00714250000-000510C02082;");
    editor.choose(MemoryField::Mode, 12);
    editor.Combo1_Click(99);
    editor.Combo1_Click(-1);
    EXPECT_EQ(editor.writeCommand.get(), "MW00714250000-000510C02082;");

    EXPECT_FALSE(editor.Text1_Change("Düsseldorf"));
    EXPECT_TRUE(editor.Text1_Change("Düsseldorf Ω"));
    EXPECT_EQ(editor.Text1_Change("Düsseldorf, Rhein"), "A comma cannot be kept in a memory list file.");
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
    const auto counted = editor.writeCommand.changed.connect([&](const std::string&) { ++commands; });
    editor.chooseRow(7);
    EXPECT_EQ(commands, 1);
    EXPECT_EQ(editor.channelPlace.get(), 6);
    EXPECT_EQ(editor.txt1.text.get(), "07'050'000");
    EXPECT_EQ(editor.txt2.text.get(), "1'234");
    EXPECT_EQ(label(MemoryField::ClarifierDirection), "-");
    EXPECT_EQ(label(MemoryField::Mode), "FM(N)");
    EXPECT_EQ(label(MemoryField::CtcssMode), "ENC/DEC");
    EXPECT_EQ(label(MemoryField::ToneNumber), "254.1");
    EXPECT_EQ(label(MemoryField::Shift), "Minus");
    EXPECT_EQ(editor.remarkText.get(), "seven");
    EXPECT_EQ(editor.writeCommand.get(), "MW00707050000-123401B01492;");  // the fixed digit is always "0" here

    editor.chooseRow(8);  // damaged: still one command of 27 characters
    EXPECT_EQ(editor.writeCommand.get(), "MW00807050000+000000D0x99y;");
    EXPECT_EQ(label(MemoryField::Mode), "");
    editor.chooseRow(9);
    EXPECT_EQ(editor.writeCommand.get(), "MW00900000000+000000100000;");
    editor.chooseRow(0);
    EXPECT_EQ(editor.channelPlace.get(), 8);
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
    EXPECT_EQ(editor.writeCommand.get(), "MW00207030000-012510300000;");
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
}

TEST_F(MemoryEditorTest, ARefusedChannelLeavesFormAndRow) {
    openEditor();
    openPort();
    const auto counted = editor.readingEnded.connect([&](Outcome::Kind end) { ends.push_back(end); });
    ports.faults().unasked = true;  // the dial is turned meanwhile
    editor.chooseRow(6);            // empty in the radio
    editor.txt1.paste("14000000");
    editor.cmd3_Click();
    EXPECT_EQ(memory.list.cell(6, MemoryField::Channel), "006");
    clock.advance(300);
    EXPECT_EQ(memory.list.cell(6, MemoryField::Channel), "");
    EXPECT_EQ(editor.txt1.text.get(), "14'000'000");
    EXPECT_EQ(editor.hint.get(), "Channel 006 is empty or was refused.");
    EXPECT_EQ(link.panels().Error.get(), editor.hint.get());

    ports.faults().refuses = true;
    editor.cmd2_Click();
    EXPECT_EQ(editor.hint.get(), "");
    clock.advance(300);
    EXPECT_EQ(editor.writeCommand.get(), "MW00614000000+000000100000;");
    EXPECT_EQ(editor.hint.get(), "Channel 006 was refused.");

    ports.faults().refuses = false;
    editor.cmd2_Click();
    clock.advance(300);
    EXPECT_EQ(record(6), "14000000+000000100000");
    EXPECT_EQ(editor.hint.get(), "");
    editor.txt1.clear();  // no channel, says the radio
    editor.cmd2_Click();
    clock.advance(300);
    EXPECT_EQ(editor.txt1.text.get(), "14'000'000");
    EXPECT_EQ(editor.hint.get(), "The radio refused channel 006. Shown is what it holds.");
    EXPECT_EQ(ends, (std::vector{Outcome::Kind::Refused, Outcome::Kind::Refused, Outcome::Kind::Done,
                                 Outcome::Kind::Refused}));
}

TEST_F(MemoryEditorTest, SendsWhatTheFormShowsAfterAReading) {
    openEditor();
    openPort();
    memory.listReader.mnu_MemSaveFromFT2000_Click();
    ASSERT_TRUE(endsWithin(20'000));
    const std::string first = "MW00114074000+000000";
    EXPECT_EQ(editor.writeCommand.get().substr(0, first.size()), first);

    editor.txt1.paste("7000000");  // being typed while another reading comes in
    openPort();
    ends.clear();
    memory.listReader.mnu_MemSaveFromFT2000_Click();
    ASSERT_TRUE(endsWithin(20'000));
    EXPECT_EQ(editor.txt1.text.get(), "07'000'000");
}

TEST_F(MemoryEditorTest, UnsavedChangesAreAskedAboutOnceBeforeTheyGo) {
    openEditor();
    openPort();
    const auto& modified = memory.list.modified;
    EXPECT_FALSE(modified);
    editor.chooseRow(1);
    editor.Text1_Change("net");
    editor.Command1_Click();
    EXPECT_TRUE(modified);
    for (const std::function<void()>& start :
         {std::function([this] { memory.listFiles.loadListFile(); }),
          std::function([this] { memory.listReader.mnu_MemSaveFromFT2000_Click(); }),
          std::function([this] { EXPECT_FALSE(program.end()); })}) {
        msgBox.foresee("changes that are in no file", MsgAnswer::No);
        start();
        EXPECT_EQ(msgBox.shown.back().buttons, MsgButtons::YesNoCareful);
        EXPECT_EQ(memory.list.cell(1, MemoryField::Remark), "net");
    }
    EXPECT_FALSE(memory.listReader.running());
    EXPECT_TRUE(link.PortOpen());

    fileDialog.choose(path("list.mef"));
    memory.listFiles.saveListFile();
    EXPECT_FALSE(modified);
    memory.list.deleteRow(9);
    EXPECT_FALSE(modified);  // there was nothing
    memory.list.insertRow(1);
    EXPECT_TRUE(modified);
    memory.list.deleteRow(1);
    EXPECT_FALSE(modified);
    memory.list.clearRow(1);
    EXPECT_TRUE(modified);
    msgBox.foresee("changes that are in no file", MsgAnswer::Yes);
    EXPECT_TRUE(program.end());
}

TEST_F(MemoryEditorTest, AnEmptyListDoesNotReplaceAFileWithChannelsUnasked) {
    write("full.mef", "MW00107050000-123401B01492;x\r\n\r\n");
    memory.list.replaceAll({});
    for (const bool replaced : {false, true}) {
        fileDialog.choose(path("full.mef"));
        msgBox.foresee("full.mef is not empty. Replace it", replaced ? MsgAnswer::Yes : MsgAnswer::No);
        EXPECT_EQ(memory.listFiles.saveListFile(), replaced ? Outcome::Kind::Done : Outcome::Kind::Cancelled);
        EXPECT_EQ(contentOf("full.mef").size(), replaced ? 2U : 32U);
    }
    fileDialog.choose(path("full.mef"));
    EXPECT_EQ(memory.listFiles.saveListFile(), Outcome::Kind::Done);
}

TEST_F(MemoryEditorTest, KeepsListsInFilesAndFollowsALoadedOne) {
    openEditor();
    memory.list.replaceAll({{1, *parseMemoryString("MW00107050000-123401B01492;\xDC"
                                                   "ber")}});
    fileDialog.choose(path("list.mef"));
    EXPECT_EQ(memory.listFiles.saveListFile(), Outcome::Kind::Done);
    EXPECT_EQ(contentOf("list.mef"),
              "MW00107050000-123401B01492;\xDC"
              "ber\r\n\r\n");
    EXPECT_EQ(memory.listFiles.files.path.get(), path("list.mef"));

    memory.list.clearRow(1);
    msgBox.foresee("changes", MsgAnswer::Yes);
    fileDialog.choose(path("list.mef"));
    EXPECT_EQ(memory.listFiles.loadListFile(), Outcome::Kind::Done);
    EXPECT_EQ(editor.remarkText.get(), "Über");
    EXPECT_FALSE(memory.list.grid.CellBackColor(1, 1));
    EXPECT_EQ(fileDialog.shown.back().start, path("list.mef"));

    fileDialog.choose(path("gone/list.mef"));
    msgBox.foresee("");
    EXPECT_EQ(memory.listFiles.loadListFile(), Outcome::Kind::FileFailed);
    EXPECT_EQ(msgBox.shown.back().title, "Path wrong ");
    write("strange.mef", "MW00107050000-123401B01492;x\r\nMW00207O50000-123401B01492;\r\n");
    fileDialog.choose(path("strange.mef"));
    msgBox.foresee("Line 2 (MW00207O50000-123401B01492;) is no memory channel. The list stays as it is.");
    EXPECT_EQ(memory.listFiles.loadListFile(), Outcome::Kind::FileFailed);
    EXPECT_EQ(memory.list.cell(1, MemoryField::Remark), "Über");

    editor.remarkText = "Ω";
    editor.Command1_Click();
    msgBox.foresee("\"Ω\"");
    EXPECT_EQ(memory.listFiles.saveListFile(), Outcome::Kind::FileFailed);
    EXPECT_EQ(contentOf("list.mef"),
              "MW00107050000-123401B01492;\xDC"
              "ber\r\n\r\n");
    msgBox.foresee("changes", MsgAnswer::Yes);
    fileDialog.cancel();
    EXPECT_EQ(memory.listFiles.loadListFile(), Outcome::Kind::Cancelled);
    memory.listFiles.files.store();
    EXPECT_EQ(settings.values["Settings/SavePath3"], path("list.mef")) << "what failed is not remembered";
}

}  // namespace
}  // namespace korvex
