#include "MemoryBench.h"

namespace korvex {
namespace {

using Ends = std::vector<Outcome::Kind>;

/// What the radio was sent so far, as the transmit display shows it, in one line.
std::string sentIn(CatLink& link) {
    std::string text = link.sent().text();
    std::erase(text, '\r');
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

TEST_F(MemoryBench, ReadsIntoAFileAtTenCommandsASecond) {
    openPort();
    memory.saver.mnu_saveMem_Click();
    EXPECT_EQ(progress.caption.get(), "Save Memories of  FT-2000");
    EXPECT_EQ(progress.maximum.get(), 101);
    EXPECT_TRUE(progress.visible);
    clock.advance(49);
    EXPECT_EQ(sentIn(link), "");
    clock.advance(1);
    EXPECT_EQ(sentIn(link), "MR001; ");
    clock.advance(99);
    EXPECT_EQ(sentIn(link), "MR001; ");
    clock.advance(1);
    EXPECT_EQ(sentIn(link), "MR001; MR002; ");
    EXPECT_EQ(link.panels().Error.get(), "Reading Memory 2");
    memory.saver.mnu_saveMem_Click();  // a second start changes nothing
    msgBox.foresee("Reading the memories, memory 2 of 99. Stop it?", MsgAnswer::No);
    memory.listReader.mnu_MemSaveFromFT2000_Click();
    EXPECT_EQ(progress.value.get(), 2);
    ends.clear();

    fileDialog.choose(path("all.mem"));
    ASSERT_TRUE(endsWithin(20'000));
    EXPECT_EQ(ends, Ends{Outcome::Kind::Done});
    std::string expected;
    std::string again;  // the channels that were refused are asked once more
    int refused = 0;
    for (int channel = 1; channel <= 99; ++channel) {
        if (!record(channel).empty()) {
            expected += "MR" + channelText(channel) + record(channel) + ";\r\n";
        } else {
            again += memoryReadCommand(channel) + " ";
            ++refused;
        }
    }
    EXPECT_TRUE(sentIn(link).ends_with("MR099; " + again));
    EXPECT_TRUE(
        link.received().text().ends_with("\r\n refused or empty: " + std::to_string(refused) + " channels \r\n"));
    EXPECT_EQ(contentOf("all.mem"), expected);
    EXPECT_EQ(link.panels().Error.get(), "Terminated");
    EXPECT_EQ(link.activeOperation(), ActiveOperation::Idle);
    EXPECT_FALSE(progress.visible);
    EXPECT_EQ(program.files.path.get(), path("all.mem"));
    EXPECT_EQ(fileDialog.shown[0].title, "Save FT-2000 Memory");
    EXPECT_EQ(fileDialog.shown[0].filter, "Flat File (*.mem)|*.mem|All Files (*.*)|*.*");
    // The table is packed: an empty channel takes no slot.
    EXPECT_EQ(memory.table[6].substr(0, 5), "MR007");
}

TEST_F(MemoryBench, TheLastAnswerHasTwoSeconds) {
    openPort();
    ports.faults().deafAfter = 98;
    memory.saver.mnu_saveMem_Click();
    constexpr int lastCommandMs = 9'850;
    clock.advance(lastCommandMs + 1'999);
    EXPECT_TRUE(memory.saver.running());
    msgBox.foresee("The radio has stopped answering", MsgAnswer::No);
    clock.advance(1);
    EXPECT_EQ(ends, Ends{Outcome::Kind::NoAnswer});
}

TEST_F(MemoryBench, ABusyRadioCostsNoChannel) {
    openPort();
    ports.faults().refusesItems = {"MR001", "MR098"};
    memory.saver.mnu_saveMem_Click();
    clock.advance(9'900);
    ports.faults().refusesItems = {"MR098"};  // and the other is asked once more
    fileDialog.choose(path("busy.mem"));
    ASSERT_TRUE(endsWithin(10'000));
    EXPECT_TRUE(contentOf("busy.mem").starts_with("MR001"));
    EXPECT_EQ(contentOf("busy.mem").find("MR098"), std::string::npos);
    EXPECT_EQ(memory.table[1].substr(0, 5), "MR001");
    ASSERT_FALSE(memory.saver.reader().remarks().empty());
}

TEST_F(MemoryBench, ARadioWithoutMemoriesGivesAnEmptyFileAndReplacesNoneUnasked) {
    const std::string full = "MR00114250000+000000200080;\r\n";
    for (const MsgAnswer answer : {MsgAnswer::No, MsgAnswer::Yes, MsgAnswer::Ok}) {
        const bool asked = answer != MsgAnswer::Ok;
        ports.faults().refuses = false;
        openPort();
        ports.faults().refuses = true;
        ends.clear();
        write("none.mem", asked ? full : " \r\n");
        fileDialog.choose(path("none.mem"));
        if (asked) msgBox.foresee("none.mem is not empty. Replace it by an empty file?", answer);
        memory.saver.mnu_saveMem_Click();
        ASSERT_TRUE(endsWithin(21'000));
        EXPECT_EQ(ends.back(), answer == MsgAnswer::No ? Outcome::Kind::Cancelled : Outcome::Kind::Done);
        EXPECT_EQ(contentOf("none.mem"), answer == MsgAnswer::No ? full : "");
        link.closePort();
    }
}

TEST_F(MemoryBench, WaitsForASlowRadioAndIsNotMisledByWhatComesUnasked) {
    openPort();
    ports.faults().slowMs = 900;
    ports.faults().unasked = true;
    ports.faults().garbage = true;
    ports.faults().split = true;
    memory.saver.mnu_saveMem_Click();
    link.answers().take("MR00150100000+000000200080;");  // before anything was asked
    fileDialog.choose(path("slow.mem"));
    ASSERT_TRUE(endsWithin(30'000));
    EXPECT_EQ(ends, Ends{Outcome::Kind::Done});
    EXPECT_TRUE(contentOf("slow.mem").ends_with("MR09918068000+000000300490;\r\n"));
    EXPECT_TRUE(contentOf("slow.mem").starts_with("MR00114074000+"));
}

TEST_F(MemoryBench, AnAnswerThatIsMissingWritesNoFile) {
    openPort();
    ports.faults().deafOnce = 50;
    memory.saver.mnu_saveMem_Click();
    msgBox.foresee("; 24 memories were read.", MsgAnswer::No);
    ASSERT_TRUE(endsWithin(13'000));
    EXPECT_EQ(ends, Ends{Outcome::Kind::NoAnswer});
    EXPECT_EQ(link.panels().Error.get(), "Communication faild ");
    EXPECT_FALSE(progress.visible);
    EXPECT_TRUE(sentIn(link).ends_with("MR099; "));
    EXPECT_EQ(memory.table[1], "");  // nothing that a later reading could take for its own
}

TEST_F(MemoryBench, OfABrokenOffReadingIsKeptWhatNamesItsChannel) {
    openPort();
    ports.faults().deafOnce = 3;  // every later answer is counted for the channel before its own
    memory.saver.mnu_saveMem_Click();
    clock.advance(1'010);
    msgBox.foresee("The reading was stopped at memory 10 of 99; ", MsgAnswer::Yes);
    fileDialog.choose(path("radio-incomplete.mem"));
    progress.cancelled.emit();
    EXPECT_EQ(fileDialog.shown.back().start, path("files/radio-incomplete.mem"));
    std::string expected;
    for (const int channel : {1, 2, 4, 5, 6, 7, 8, 9}) {
        if (!record(channel).empty()) expected += "MR" + channelText(channel) + record(channel) + ";\r\n";
    }
    EXPECT_EQ(contentOf("radio-incomplete.mem"), expected);
    EXPECT_EQ(ends, Ends{Outcome::Kind::Cancelled});
    EXPECT_TRUE(link.panels().Error.get().starts_with("Stopped at memory 10 of 99"));

    memory.listReader.mnu_MemSaveFromFT2000_Click();
    clock.advance(1'010);
    msgBox.foresee("Put them into the list? Its other rows stay as they are.", MsgAnswer::Yes);
    progress.cancelled.emit();
    EXPECT_EQ(memory.list.cell(2, MemoryField::Frequency), record(2).substr(0, 8));
    EXPECT_FALSE(memory.list.filled(99));
}

TEST_F(MemoryBench, AListReadingReplacesWhatWasChangedMeanwhileOnlyWithLeave) {
    for (const MsgAnswer answer : {MsgAnswer::No, MsgAnswer::Yes}) {
        ends.clear();
        openPort();
        memory.listReader.mnu_MemSaveFromFT2000_Click();
        ASSERT_TRUE(endsWithin(20'000));
        openPort();
        ends.clear();
        memory.listReader.mnu_MemSaveFromFT2000_Click();
        clock.advance(5'000);
        memory.list.clearRow(1);
        memory.list.setRemark(2, "mine");
        memory.list.clearRow(6);  // the radio has none there
        msgBox.foresee("you have changed row 1, for which the radio told something else", answer);
        ASSERT_TRUE(endsWithin(20'000));
        const bool replaced = answer == MsgAnswer::Yes;
        EXPECT_EQ(memory.list.filled(1), replaced);
        EXPECT_EQ(memory.list.modified, !replaced);
        EXPECT_EQ(memory.list.cell(2, MemoryField::Remark), "mine");
        EXPECT_TRUE(memory.list.filled(99));
        memory.list.noteSaved();
    }
}

TEST_F(MemoryBench, ReadsIntoTheListAndClosesThePort) {
    openPort();
    memory.listReader.mnu_MemSaveFromFT2000_Click();
    ASSERT_TRUE(endsWithin(20'000));
    EXPECT_EQ(ends, Ends{Outcome::Kind::Done});
    EXPECT_FALSE(link.PortOpen());
    EXPECT_EQ(memory.list.cell(99, MemoryField::Frequency), "18068000");
    EXPECT_FALSE(memory.list.filled(6));
    // The next communication test must see its answer.
    link.togglePort();
    clock.advance(1200);
    EXPECT_NE(link.received().text().find("  Communication OK  "), std::string::npos);
}

TEST_F(MemoryBench, AReadingPutsNothingOfAnEarlierRadioIntoTheList) {
    openPort();
    memory.listReader.mnu_MemSaveFromFT2000_Click();
    ASSERT_TRUE(endsWithin(20'000));
    for (auto& channel : ports.radio().state.memories) channel.reset();
    ports.radio().state.memories[99] = "21000000+000000200080";
    openPort();
    ends.clear();
    memory.listReader.mnu_MemSaveFromFT2000_Click();
    ASSERT_TRUE(endsWithin(20'000));
    EXPECT_EQ(memory.list.cell(99, MemoryField::Frequency), "21000000");
    EXPECT_EQ(memory.table[2], "");
}

TEST_F(MemoryBench, ClosingThePortInTheMiddleEndsEveryTransferForGood) {
    write("some.mem", "MR00114250000+000000200080;\r\nMR00314250000+000000200080;\r\nMR00414250000+000000200080;\r\n");
    const std::vector<std::function<void()>> starts = {
        [this] { memory.saver.mnu_saveMem_Click(); },
        [this] { memory.listReader.mnu_MemSaveFromFT2000_Click(); },
        [this] { fileDialog.choose(path("some.mem")), memory.restorer.mnu_restMem_Click(); },
        [this] { memory.listWriter.mnu_MemRestoreTOFT2000_Click(); },
    };
    for (const bool unplugged : {false, true}) {
        for (std::size_t i = 0; i < starts.size(); ++i) {
            openPort();
            ends.clear();
            starts[i]();
            clock.advance(160);
            if (i == 0) msgBox.foresee("at memory 2 of 99; 1 memory was read.\r\nKeep", MsgAnswer::No);
            if (i == 1) msgBox.foresee("Put them into the list?", MsgAnswer::No);
            if (unplugged) {
                msgBox.foresee("");
                ports.unplug();
                clock.advance(1);
                ports.plugIn();
            } else {
                link.togglePort();
            }
            EXPECT_FALSE(progress.visible);
            EXPECT_EQ(sentIn(link), i == 3 ? "Failure Port  " : "") << i;
            const int obeyed = ports.radio().timesSet;
            link.togglePort();  // at once, while a timer could still be running
            clock.advance(20'000);
            EXPECT_EQ(ends, Ends{Outcome::Kind::PortClosed}) << i;
            EXPECT_EQ(sentIn(link), "") << i;
            EXPECT_EQ(ports.radio().timesSet, obeyed) << i;
            link.togglePort();
        }
    }
}

TEST_F(MemoryBench, RestoresAFileLineByLine) {
    openPort();
    ports.radio().state.memories[1].reset();
    write("two.mem", "MR00114250000+000000200080;\r\nMR00307040000-123411300080;");
    fileDialog.choose(path("two.mem"));
    memory.restorer.mnu_restMem_Click();
    EXPECT_EQ(progress.caption.get(), "Restore Memories to FT2000");
    clock.advance(100);
    EXPECT_EQ(sentIn(link), "MW00114250000+000000200080; ");
    EXPECT_EQ(program.link.lineWritten.get(), "MR00114250000+000000200080;");
    clock.advance(99);
    EXPECT_EQ(ends, Ends{});
    clock.advance(1);
    EXPECT_FALSE(memory.restorer.running());
    EXPECT_EQ(sentIn(link), "MW00114250000+000000200080; MW00307040000-123411300080; Terminated ");
    EXPECT_EQ(link.received().text(), "MR00114250000+000000200080;\r\nMR00307040000-123411300080;\r\n");
    EXPECT_EQ(progress.value.get(), 3);
    EXPECT_EQ(link.activeOperation(), ActiveOperation::Idle);
    clock.advance(599);
    EXPECT_EQ(ends, Ends{});
    clock.advance(1);
    EXPECT_EQ(ends, Ends{Outcome::Kind::Done}) << "with the time for a late refusal";
    EXPECT_TRUE(link.received().text().ends_with("\r\n 2 memories written \r\n"));
    EXPECT_EQ(record(1), "14250000+000000200080");
    EXPECT_EQ(record(3), "07040000-123411300080");
}

TEST_F(MemoryBench, RestoreTellsFilesThatItCannotUse) {
    openPort();
    link.panels().Error = "old";
    fileDialog.cancel();
    memory.restorer.mnu_restMem_Click();
    EXPECT_EQ(link.panels().Error.get(), "");

    fileDialog.choose(path("missing.mem"));
    msgBox.foresee("missing.mem");
    memory.restorer.mnu_restMem_Click();
    EXPECT_EQ(msgBox.shown.back().title, "File not found");
    fileDialog.choose(path("no folder/x.mem"));
    msgBox.foresee("");
    memory.restorer.mnu_restMem_Click();
    EXPECT_EQ(msgBox.shown.back().title, "Path wrong");

    write("empty.mem", "");
    memory.table.set(1, "MR00114250000+000000200080;");  // from an earlier reading: not to be sent
    fileDialog.choose(path("empty.mem"));
    msgBox.foresee("empty.mem is no memory file that can be restored.\nThere is no memory in it");
    memory.restorer.mnu_restMem_Click();
    EXPECT_EQ(msgBox.shown.back().icon, MsgIcon::Exclamation);
    write("strange.mem", "MR00114250000+000000200080;\r\nMR002\rKY6;\r\n");
    fileDialog.choose(path("strange.mem"));
    msgBox.foresee("Line 2 (MR002) is no memory as the radio tells it, nothing was sent.");
    memory.restorer.mnu_restMem_Click();
    clock.advance(200);
    EXPECT_EQ(ends.back(), Outcome::Kind::FileFailed);
    EXPECT_EQ(sentIn(link), "");

    link.togglePort();
    write("one.mem", "MR00914250000+000000200080;\r\n");
    fileDialog.choose(path("one.mem"));
    memory.restorer.mnu_restMem_Click();
    EXPECT_EQ(memory.table[1], "MR00914250000+000000200080;");
    EXPECT_FALSE(progress.visible);
    EXPECT_FALSE(memory.restorer.running());
}

TEST_F(MemoryBench, WritesTheListARowEveryHalfSecond) {
    memory.list.replaceAll({{1, *parseMemoryString("MW00114250000+000000200080;one")},
                            {3, *parseMemoryString("MW00307040000+000000300080;three")}});
    memory.listWriter.mnu_MemRestoreTOFT2000_Click();  // closed: nothing
    EXPECT_FALSE(memory.listWriter.running());
    openPort();
    memory.listWriter.mnu_MemRestoreTOFT2000_Click();
    clock.advance(499);
    EXPECT_EQ(sentIn(link), "");
    clock.advance(1);
    EXPECT_EQ(sentIn(link), "MW00114250000+000000200080; ");
    clock.advance(500);
    EXPECT_EQ(link.panels().Error.get(), "Writing Memory 2");
    clock.advance(500);
    EXPECT_EQ(sentIn(link), "MW00114250000+000000200080; MW00307040000+000000300080; ");
    EXPECT_EQ(progress.value.get(), 3);
    memory.list.place(5, *parseMemoryString("MW00507040000+000000300080;"));  // after the start: stays here
    clock.advance(96 * 500 - 1);
    EXPECT_TRUE(memory.listWriter.running());
    clock.advance(1);
    EXPECT_FALSE(memory.listWriter.running());
    clock.advance(600);
    EXPECT_EQ(ends, Ends{Outcome::Kind::Done});
    EXPECT_EQ(link.panels().Error.get(), "Terminated");
    EXPECT_EQ(record(1), "14250000+000000200080");
    EXPECT_EQ(record(3), "07040000+000000300080");
    EXPECT_NE(record(5), "07040000+000000300080");
}

TEST_F(MemoryBench, NothingIsStoppedUnasked) {
    std::string lines;
    for (int i = 0; i < 90; ++i) lines += "MR00114250000+000000200080;\r\n";
    write("many.mem", lines);
    const std::vector<std::pair<const char*, std::function<void()>>> starts = {
        {"Reading the memories, memory 10 of 99", [this] { memory.saver.mnu_saveMem_Click(); }},
        {"Reading the memories, memory 10 of 99", [this] { memory.listReader.mnu_MemSaveFromFT2000_Click(); }},
        {"Writing the memories, memory 10 of 90",
         [this] { fileDialog.choose(path("many.mem")), memory.restorer.mnu_restMem_Click(); }},
        {"Writing the memory list, row 2 of 99", [this] { memory.listWriter.mnu_MemRestoreTOFT2000_Click(); }},
    };
    for (const auto& [standing, start] : starts) {
        openPort();
        ends.clear();
        start();
        clock.advance(1'000);
        for (const auto answer : {MsgAnswer::No, MsgAnswer::Yes}) {
            EXPECT_EQ(ends, Ends{}) << standing;
            msgBox.foresee(std::string(standing) + ". Stop it?", answer);
            memory.editor.cmd3_Click();
        }
        EXPECT_EQ(ends, Ends{Outcome::Kind::Cancelled}) << standing;
        EXPECT_TRUE(memory.editor.isReading());
        EXPECT_FALSE(progress.visible);
        clock.advance(1'000);
        EXPECT_EQ(memory.list.cell(1, MemoryField::Channel), "001");
        EXPECT_FALSE(memory.editor.isReading());
        link.closePort();
    }
}

}  // namespace
}  // namespace korvex
