#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "radio/CommandCutter.h"
#include "radio/Faults.h"
#include "radio/SimulatedRadio.h"

namespace korvex {

/// What a simulated radio says when, with all that can go wrong on the way. It has no clock: the time is handed in, in
/// ms, and may stand still but not go back.
class RadioLine {
public:
    explicit RadioLine(SimulatedRadio& radio) : m_radio(radio) {}

    Faults faults;
    int turnaroundMs = 30;         ///< from the end of a command to the beginning of its answer
    double characterTimeMs = 0;    ///< of the line to the program; 0: every answer comes in one piece
    bool enforcesTimeOut = false;  ///< menu 029: a command whose characters come too slowly is refused and dropped
    /// Answers that are given in place of the radio's own, by the question without its ";"; empty: it stays silent.
    std::map<std::string, std::string, std::less<>> fixedAnswers;
    /// What it tells unasked while that fault lasts, in turn; each with its ";".
    std::vector<std::string> tellsUnasked;
    /// How long the radio takes for commands of these letters, in place of `turnaroundMs`; the second one of them takes
    /// `onceMs`.
    struct Pause {
        int usualMs;
        int onceMs;
        int commands = 0;
    };
    std::map<std::string, Pause, std::less<>> pauses;
    bool speedsDiffer = false;  ///< the two ends cannot understand each other
    int commandsHeard = 0;      ///< how many commands have come in, whatever became of them

    /// These characters have come to the radio by now.
    void hear(double nowMs, std::string_view characters);

    /// When something will happen next; nothing when the line is quiet.
    std::optional<double> nextDue() const;

    /// What has come out of the line by now.
    std::string takeDue(double nowMs);

    /// The plug was pulled and the last answer before it has come out.
    bool isUnplugged(double nowMs) const { return m_goneAt && nowMs >= *m_goneAt; }

    void plugIn();

    /// A program has left the line: nothing of what was under way will reach the next one.
    void clear();

private:
    struct Character {
        double at;
        char character;
    };

    int pauseFor(const std::string& command);
    std::string takeUnasked();
    void hearCommand(double nowMs, const std::string& command);
    bool isDeafNow();
    bool refuses(const std::string& command) const;
    std::string obey(const std::string& command);
    bool forgets(bool isSet);
    void send(double readyMs, std::string answer);
    void putOnLine(double readyMs, std::string_view text);
    void sendTogether(double readyMs, const std::string& answer);
    void releaseHeld(double nowMs);
    std::string noise();
    void dropIfTooSlow(double nowMs);

    SimulatedRadio& m_radio;
    CommandCutter m_cutter;
    double m_lastHeard = 0;
    std::deque<Character> m_line;  // what is on its way to the program
    double m_lineFreeAt = 0;
    std::string m_held;  // answers that wait to be sent together
    int m_heldAnswers = 0;
    double m_heldUntil = 0;
    std::optional<double> m_goneAt;
    unsigned m_noiseSeed = 1;
    bool m_unaskedInFront = false;
    std::size_t m_toldUnasked = 0;
    double m_busyUntil = 0;
};

}  // namespace korvex
