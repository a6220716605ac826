#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "cat/CatLink.h"
#include "cat/PhaseFlag.h"
#include "memory/MemoryTables.h"

namespace korvex {

/// Reads all memory channels of the radio: one read command every 100 ms, whether or not the answer to the one before
/// has come; answers are matched to commands by counting. "?;" is what a channel without data answers, and what a busy
/// radio answers to anything: these channels are asked once more at the end.
///
///     sends    MR001;       MR002;  MR003;  ...  MR099;  MR002;       the end comes with the last answer;
///     answers     MR001..;     ?;      MR003..;  ...        ?;        2 s of silence: "Communication faild "
///
/// At the answered pace (CatLink) each command leaves when the answer to the one before has come.
///
/// The scan limits go at that pace whatever the pace of the others. A radio that refuses the first pair, or does not
/// answer, has none or tells none: it is asked no more, and nothing was found.
///
/// A radio slower than 10 answers a second is waited for. Answers of a reading that fails on the way may have been
/// matched to the wrong commands: of these there stay the ones that are whole, each as the channel that it names.
class MemoryReader {
public:
    explicit MemoryReader(CatLink& link) : m_link(link) {}

    /// `code` is what the reading is for. `ended` tells the end, at once if the line is not to be had; its outcome
    /// names the channels that were refused twice.
    void read(ActiveOperation code, const std::string& caption) { read(code, caption, {}); }
    void readScanLimits(const std::string& caption) { read(ActiveOperation::ReadAllToFile, caption, scanLimits); }
    /// Gives the line back without a word.
    void stop() { m_operation.reset(); }
    bool running() const { return m_operation && m_operation->running(); }

    /// What was found, in the order of the channels, in slots from 1 on; channels without data take none.
    MemoryTable table() const;
    /// What stands in the file of the last reading.
    std::string fileText() const;
    /// What the radio has told of a channel; "?;" where it has refused.
    std::string told(int channel) const;
    int found() const { return static_cast<int>(m_found.size()); }
    /// Those of the table that can be what the radio said of the channel, and the channels ("007") of the others: noise
    /// came between, or the radio told of another channel than it was asked for.
    MemoryTable undamaged() const;
    std::vector<std::string> damaged() const;
    /// What the owner should know of what is not in the file: UTF-8, a line each, empty if there is nothing.
    std::vector<std::string> remarks() const;

    Signal<const Outcome&> ended;

private:
    void read(ActiveOperation code, const std::string& caption, ChannelRange range);
    bool isOptional() const { return m_range.last > lastMemoryChannel; }
    bool tellsNone() const;
    void sendNext();
    void ask(int channel);
    void show(int channel);
    void showAgain();
    Rest takeAnswer(std::string_view answer);
    bool take(int channel, std::string_view answer);
    void converse();
    bool noteSilence(const Reply& reply);
    void keep(int channel, std::string_view answer);
    void onEnd(const Outcome& outcome);
    void fail();
    Rest finish();

    CatLink& m_link;
    PhaseFlag m_phase;
    ChannelRange m_range;
    std::vector<int> m_channels;  // to ask: all, then those that were refused
    std::size_t m_asked = 0;      // of them
    std::size_t m_answered = 0;
    bool m_again = false;                // it is the second time
    std::vector<int> m_refused;          // this time
    std::map<int, std::string> m_found;  // the stored strings by channel
    std::map<int, std::string> m_named;  // undamaged answers by the channel that they name
    std::set<int> m_doubtful;            // channels whose answer was damaged or named another one
    enum class Silence { None, AsksAnother, OfTheChannel } m_silence = Silence::None;
    int m_silentSteps = 0;  // since all commands are out, or since the last answer after that
    std::unique_ptr<Operation> m_operation;
};

}  // namespace korvex
