#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "fakes/ProgramBench.h"
#include "fakes/TalkativePorts.h"

namespace korvex {

struct TriedOperation;

/// The whole program with a simulated radio, and an owner who answers every dialog and box.
struct TroubleBench : fakes::ProgramBench<fakes::TalkativePorts> {
    static constexpr const char* oldContent = "an old file\r\n";

    explicit TroubleBench(Pace pace = Pace::Every100Ms);

    const std::string source = folder.file("source");  ///< what an operation loads
    const std::string target = folder.file("target");  ///< what it saves into; holds an old file
    const std::string backups = folder.file("backups");

    int slidersToMove = 0;  ///< of the equalizer

    /// How the operations ended last, by the name of the part that tells it.
    std::map<std::string, Outcome::Kind> ends;

    void closePorts();
    /// The files of the last whole backup, a line of a file each.
    std::string lastBackup() const;
    std::optional<Outcome::Kind> endOf(const TriedOperation& operation);
    void settle() { clock.advance(100); }  ///< what was written reaches the radio
    bool portOpen() { return ports.cable.isOpen; }
    int heard() const { return ports.cable.line.commandsHeard; }
    bool anythingRuns();
    std::string ask(const std::string& command) { return ports.radio().answer(command + ";"); }

    /// What of the windows and files is not as it should be when nothing goes on; empty when all is well.
    std::string whatIsWrong();

private:
    void listenTo(const std::string& part, Signal<const Outcome&>& ended);

    Connections m_connections;
};

/// Something that a user starts and that takes its time on the line.
struct TriedOperation {
    std::string_view name;
    void (*prepare)(TroubleBench&);        ///< what has to be there before
    void (*start)(TroubleBench&);          ///< the click
    bool (*running)(TroubleBench&);        ///< it still goes on
    std::string_view endedBy;              ///< the part that tells how it ended
    std::string (*result)(TroubleBench&);  ///< what it brings about, a fact a line
    bool (*told)(TroubleBench&);           ///< the owner is told that something is missing
    std::string_view oneItem;              ///< the beginning of one of its commands
};

const std::vector<TriedOperation>& operations();

/// What an operation does when nothing is wrong.
struct Healthy {
    std::int64_t duration = 0;
    int commands = 0;
    std::vector<std::string> facts;  ///< the lines of its result that were not there before
    std::string target;              ///< the content of the target file
};

const Healthy& healthy(const TriedOperation& operation, Pace pace = Pace::Every100Ms);

/// What can go wrong with the radio and its line, for whatever sends that many commands and, among them, one item.
struct LineTrouble {
    std::string_view name;
    void (*arrange)(Faults&, int commands, std::string_view oneItem);
};

const std::vector<LineTrouble>& lineTroubles();

/// What can go wrong. `arrange` runs with the port open, just before the operation starts.
struct Trouble {
    std::string_view name;
    std::function<void(TroubleBench&, const TriedOperation&, const Healthy&)> arrange;
};

const std::vector<Trouble>& troubles();
/// A radio that is otherwise than Korvex believes, belief by belief.
const std::vector<Trouble>& reversedBeliefs();
inline constexpr std::string_view secondOperationTrouble = "a second operation";

/// The operation that is started in the middle of this one.
const TriedOperation& secondOperation(const TriedOperation& first);

/// Another radio than the one that files are read from, so that what is written can be seen.
RadioState unlikeRadio();

std::vector<std::string> linesOf(const std::string& text);
/// " 3/5", when that many of the facts are there now, and not all or, as it may be, none; else empty.
std::string shareOf(const std::vector<std::string>& facts, const std::vector<std::string>& now, bool all);

/// Rows of cells as a Markdown table whose columns stand below one another.
std::string markdown(const std::vector<std::vector<std::string>>& rows);
/// docs/RELIABILITY.md tells owners what to expect: its table that begins with `head` is the one that was found.
/// KORVEX_WRITE_RELIABILITY=1 writes it.
void expectOnThePage(const std::string& head, const std::string& found);

}  // namespace korvex
