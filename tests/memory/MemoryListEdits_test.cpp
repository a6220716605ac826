#include "memory/MemoryListEdits.h"

#include <gtest/gtest.h>

#include "fakes/FakeDialogs.h"
#include "memory/FieldText.h"
#include "memory/ListText.h"

namespace korvex {
namespace {

struct Edits : testing::Test {
    Edits() {
        std::map<int, MemoryRecord> records;
        for (const int row : {5, 6, 7}) {
            records[row] = *parseMemoryString("MW00" + std::to_string(row) + "1425000" + std::to_string(row) +
                                              "-012510A01462;R" + std::to_string(row));
        }
        list.replaceAll(records);
        m_copied = edits.textCopied.connect([this](const std::string& text) { clipboard = text; });
    }
    std::string shown(int row) const {
        std::string text;
        for (int col = 1; col < list.grid.Cols(); ++col) text += (col > 1 ? "|" : "") + face.text(row, col);
        return text;
    }
    void at(int row, MemoryField field = MemoryField::Channel) { list.grid.setCurrent(row, MemoryList::column(field)); }
    void pasteText(const std::string& text) { edits.paste({list.grid.Row()}, text); }
    void put(int row, MemoryField field, const std::string& text) { face.put(row, MemoryList::column(field), text); }
    bool refuses(int row, MemoryField field, const std::string& text) const {
        return face.whyRefused(row, MemoryList::column(field), text).has_value();
    }

    fakes::FakeMsgBox msgBox;
    MemoryList list;
    MemoryListFace face{list};
    MemoryListEdits edits{list, face, msgBox};
    std::string clipboard;

private:
    Connection m_copied;
};

constexpr const char* codes5 = "005|14250005|-|0125|1|0|A|0|1|46|2|R5";
constexpr const char* readable5 = "005|14.250.005|-|125|ON|OFF|PKT-FM|0|ENC/DEC|233.6|Minus|R5";

TEST_F(Edits, ShowCodesOrWhatTheyMeanAndTakeBoth) {
    EXPECT_EQ(shown(5), codes5);
    face.readable = true;
    EXPECT_EQ(shown(5), readable5);
    EXPECT_EQ(list.cell(5, MemoryField::Mode), "A");
    EXPECT_EQ(list.grid.ColWidth(7), 1500);
    face.readable = false;
    EXPECT_EQ(list.grid.ColWidth(7), 500);

    put(5, MemoryField::Frequency, "7.05 MHz");
    put(5, MemoryField::Mode, "pkt-u");
    put(5, MemoryField::CtcssMode, "2");
    put(5, MemoryField::ToneNumber, "67");  // a spreadsheet's 67.0
    put(5, MemoryField::ClarifierOffset, "1'234 Hz");
    put(5, MemoryField::Remark, " two  words ");
    EXPECT_EQ(shown(5), "005|07050000|-|1234|1|0|C|0|2|00|2| two  words ");
    put(5, MemoryField::ToneNumber, "7");
    EXPECT_EQ(list.cell(5, MemoryField::ToneNumber), "07");
    put(9, MemoryField::Frequency, "3573000");
    EXPECT_EQ(shown(9), "009|03573000|+|0000|0|0|1|0|0|00|0|");
    EXPECT_EQ(*list.undo(), "change of Frequency, row 9");

    EXPECT_TRUE(refuses(5, MemoryField::Channel, "006"));
    EXPECT_TRUE(refuses(5, MemoryField::Frequency, "14.25"));
    EXPECT_TRUE(refuses(5, MemoryField::Frequency, ""));
    EXPECT_TRUE(refuses(5, MemoryField::Mode, "D"));
    EXPECT_TRUE(refuses(5, MemoryField::ToneNumber, "50"));
    EXPECT_TRUE(refuses(5, MemoryField::ClarifierOffset, "10000"));
    EXPECT_TRUE(refuses(5, MemoryField::ClarifierOffset, "-5"));
    EXPECT_TRUE(refuses(5, MemoryField::Remark, "a, b"));
    EXPECT_TRUE(refuses(10, MemoryField::Mode, "USB"));  // an empty row
    EXPECT_FALSE(refuses(5, MemoryField::FixedDigit, "1"));
}

TEST_F(Edits, PutRowsIntoTheClipboardAndTakeThemBackAsASpreadsheetHasThem) {
    face.readable = true;
    edits.copyRows({5, 6}, true);
    const std::string table = clipboard;
    EXPECT_EQ(table.substr(0, table.find('\n')),
              "Channel\tFrequency\tClarifier\tClarifier offset\tRX clarifier\tTX clarifier\tMode\tFixed digit\t"
              "CTCSS mode\tTone\tShift\tRemark");
    at(20);
    pasteText(table + "\r\n");  // not the buffer's
    EXPECT_EQ(shown(20), "020" + std::string(readable5).substr(3));
    EXPECT_EQ(list.cell(21, MemoryField::Remark), "R6");
    EXPECT_EQ(list.history().undoable(), "pasting of 2 rows");
    list.undo();
    EXPECT_FALSE(list.filled(20));
    EXPECT_FALSE(list.filled(21));

    list.setRemark(5, "tab\tand \"quotes\"");
    edits.copyRows({5});
    const auto back = rowsFromText(list, clipboard, 30, MemoryField::Channel);
    EXPECT_EQ(back.refused, std::vector<std::string>());
    EXPECT_EQ(back.rows.at(30)[MemoryField::Remark], "tab\tand \"quotes\"");
}

TEST_F(Edits, PasteTheColumnsThatATextHas) {
    at(5, MemoryField::Mode);
    pasteText("USB\t0\tOFF\nCW\t\t");
    EXPECT_EQ(shown(5), "005|14250005|-|0125|1|0|2|0|0|46|2|R5");
    EXPECT_EQ(shown(6), "006|14250006|-|0125|1|0|3|0|0|46|2|R6");
    at(6, MemoryField::Channel);
    pasteText("7.1 MHz");
    EXPECT_EQ(list.cell(6, MemoryField::Frequency), "07100000");  // nobody can paste a channel's number
    at(6, MemoryField::Frequency);
    pasteText("7.1 MHz\r\n7.2 MHz\r\n");
    EXPECT_EQ(list.cell(6, MemoryField::Frequency), "07100000");
    EXPECT_EQ(list.cell(7, MemoryField::Remark), "R7");
    at(40);
    pasteText("Comment\tFreq\tMode\r\nfirst\t28.5 MHz\tusb\r\n\t\t\r\nthird\t21 MHz\t");
    EXPECT_EQ(shown(40), "040|28500000|+|0000|0|0|2|0|0|00|0|first");
    EXPECT_FALSE(list.filled(41));
    EXPECT_EQ(shown(42), "042|21000000|+|0000|0|0|1|0|0|00|0|third");
    at(40);
    pasteText("40\t040\t28501000\t+\t0\t0\t0\t2\t0\t0\t0\t0\tall thirteen");
    EXPECT_EQ(shown(40), "040|28501000|+|0000|0|0|2|0|0|00|0|all thirteen");
}

TEST_F(Edits, APasteWithBadCellsSaysWhichAndChangesNothingWithoutLeave) {
    const std::string text = "14.1 MHz\n14.2\n14.3 MHz";
    at(97, MemoryField::Frequency);
    msgBox.foresee("1 of the pasted cells cannot be taken:\r\nRow 98, Frequency: \"14.2\" needs a unit", MsgAnswer::No);
    pasteText(text);
    EXPECT_FALSE(list.filled(97));
    EXPECT_EQ(list.history().undoable(), "loading of a file");
    msgBox.foresee("Paste the other 2 rows?", MsgAnswer::Yes);
    pasteText(text);
    EXPECT_EQ(msgBox.shown.back().buttons, MsgButtons::YesNoCareful);
    EXPECT_TRUE(list.filled(97));
    EXPECT_FALSE(list.filled(98));
    EXPECT_TRUE(list.filled(99));
    at(99);
    msgBox.foresee("the list ends with row 99", MsgAnswer::No);
    pasteText("Freq\tMode\n7000000\tUSB\n7001000\tUSB");
    at(50, MemoryField::Mode);
    msgBox.foresee("Row 50 has no frequency");  // and no other row
    pasteText("USB\tx");
    msgBox.foresee("Row 50 has too many columns");
    at(50, MemoryField::Remark);
    pasteText("one\ttwo");
}

TEST_F(Edits, TheKeysAndThePopUpTakeSeveralRows) {
    edits.FlexGrid1_KeyDown('v', {12}, "");  // nothing copied yet
    EXPECT_FALSE(list.filled(12));
    edits.List1_Click(3, {5, 6}, "");
    EXPECT_EQ(list.grid.CellBackColor(6, 12), 65535);
    edits.FlexGrid1_KeyDown('x', {12}, clipboard);
    edits.FlexGrid1_KeyDown('V', {12}, clipboard);
    EXPECT_EQ(shown(12), "012" + std::string(codes5).substr(3));
    EXPECT_EQ(list.cell(13, MemoryField::Remark), "R6");
    EXPECT_FALSE(list.grid.CellBackColor(12, 1));
    at(14, MemoryField::Mode);
    edits.List1_Click(4, {14}, "a word from elsewhere");  // no value of the cell: the buffer's rows
    EXPECT_EQ(list.cell(15, MemoryField::Channel), "015");
    edits.FlexGrid1_KeyDown('v', {99}, clipboard);
    EXPECT_FALSE(list.filled(99));
    edits.FlexGrid1_KeyDown('c', {7}, "");
    EXPECT_FALSE(list.grid.CellBackColor(7, 1));
    edits.FlexGrid1_KeyDown('v', {20, 22}, clipboard);
    EXPECT_EQ(list.cell(22, MemoryField::Remark), "R7");
    EXPECT_FALSE(list.filled(21));
    edits.List1_Click(0, {20, 22}, "");
    EXPECT_FALSE(list.filled(20));
    EXPECT_EQ(list.grid.CellBackColor(22, 1), 65535);
    list.undo();
    EXPECT_TRUE(list.filled(20));
    edits.List1_Click(2, {5, 6}, "");
    EXPECT_EQ(list.cell(5, MemoryField::Remark), "R7");
    at(5);
    edits.List1_Click(1, {5}, "");
    EXPECT_FALSE(list.filled(5));
    edits.List1_Click(-1, {6}, "");
    EXPECT_EQ(list.cell(6, MemoryField::Channel), "006");
}

TEST_F(Edits, MoveRowsWithTheirMarks) {
    std::vector<int> moved;
    const auto told = edits.rowsMoved.connect([&](const std::vector<int>& rows) { moved = rows; });
    list.clearRow(4);
    at(6);
    edits.moveRows({5, 7}, true);
    EXPECT_EQ(moved, (std::vector<int>{4, 6}));
    EXPECT_EQ(edits.told.get(), "2 rows moved up");
    EXPECT_EQ(list.grid.Row(), 5);
    EXPECT_EQ(list.cell(4, MemoryField::Remark), "R5");
    EXPECT_EQ(list.cell(4, MemoryField::Channel), "004");
    EXPECT_TRUE(list.grid.CellBackColor(5, 1));
    EXPECT_EQ(list.cell(6, MemoryField::Remark), "R7");
    EXPECT_EQ(list.cell(7, MemoryField::Remark), "R6");
    face.put(6, MemoryList::column(MemoryField::Remark), "R7a");
    EXPECT_EQ(edits.told.get(), "");  // what it said is no longer the last that was done
    face.put(6, MemoryList::column(MemoryField::Remark), "R7");
    edits.moveRows({4, 5, 6}, false);
    EXPECT_EQ(list.cell(7, MemoryField::Remark), "R7");
    EXPECT_EQ(list.cell(4, MemoryField::Remark), "R6");
    moved.clear();
    edits.moveRows({1, 5}, true);
    edits.moveRows({4, 99}, false);
    EXPECT_TRUE(moved.empty());
}

TEST_F(Edits, FindWhatIsWrittenAsCodeOrReadableAndOnlyInSight) {
    at(6);
    EXPECT_TRUE(edits.find("pkt-fm", true));
    EXPECT_EQ(list.grid.Row(), 7);
    EXPECT_TRUE(edits.find("14250005", true));  // goes on at the top
    EXPECT_EQ(list.grid.Row(), 5);
    EXPECT_EQ(list.grid.Col(), MemoryList::column(MemoryField::Frequency));
    EXPECT_TRUE(edits.find("14.250.", false));
    EXPECT_EQ(list.grid.Row(), 7);
    EXPECT_FALSE(edits.find("r8", true));
    EXPECT_EQ(list.grid.Row(), 7);
    EXPECT_FALSE(edits.find("", true));
    list.setRemark(30, "only here");
    face.onlyFilled = true;
    EXPECT_FALSE(edits.find("only here", true));
}

TEST_F(Edits, FilterAndMarkRows) {
    at(9);
    face.onlyFilled = true;
    EXPECT_TRUE(list.grid.isRowHidden(4));
    EXPECT_FALSE(list.grid.isRowHidden(5));
    EXPECT_EQ(list.grid.Row(), 7);
    list.deleteRow(1);
    EXPECT_FALSE(list.grid.isRowHidden(4));
    list.replaceAll({});
    EXPECT_FALSE(list.grid.isRowHidden(4));  // nothing is filled
    list.undo();
    list.undo();
    face.onlyFilled = false;
    EXPECT_EQ(face.summary.get(), "3 filled, 3 changed *, 3 not yet in the radio \u2191");
    list.noteSaved();
    EXPECT_EQ(list.grid.Mark(5, 0).sign, "\u2191");
    list.noteInRadio(5, list.channelFields(5));
    list.setRemark(5, "no field of the radio");
    EXPECT_EQ(list.grid.Mark(5, 0).sign, "*");
    put(5, MemoryField::Frequency, "60000001");
    EXPECT_EQ(list.grid.Mark(5, 0).sign, "*\u2191");
    EXPECT_TRUE(face.backColour(5, 2));
    EXPECT_FALSE(face.backColour(6, 2));
    EXPECT_EQ(list.grid.Mark(5, 2).sign, "!");
    EXPECT_EQ(face.summary.get(), "3 filled, 1 changed *, 3 not yet in the radio \u2191, 1 not tuned by the radio !");
}

}  // namespace
}  // namespace korvex
