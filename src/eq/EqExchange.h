#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "base/Property.h"
#include "base/RuntimeError.h"
#include "cat/Pace.h"
#include "cat/PhaseFlag.h"
#include "eq/EqItems.h"
#include "eq/EqOtherSet.h"
#include "platform/Clock.h"
#include "platform/MSComm.h"

namespace korvex {

/// Holds the nine equalizer values, reads them from the radio and sends every change at once, over a port of its own.
///
/// A reading queries one item every 400 ms, at the answered pace also as soon as the one before has been told; its
/// answers set the values. 0.5 to 1 s after the last query it ends, and from then on answers (the radio's echo of what
/// the user changes) are consumed without effect, so that a late echo never pulls a slider back while it is dragged.
///
/// What comes ends at each ";". Noise in front of an answer is cut off; a refusal and what comes unasked cost no other
/// item its answer. A command that the radio has already had for an item does not go out again.
class EqExchange {
public:
    enum class Phase { Reading, Live };

    EqExchange(MSComm& port, Clock& clock);

    std::array<Property<int>, eqItemCount> value;
    std::array<Property<std::string>, eqItemCount> display;  ///< what stands beside each slider
    /// Whether the radio has told this item since the last reading began: the others stand where they happen to stand.
    std::array<Property<bool>, eqItemCount> known;
    Property<bool> processorOn{false};  ///< which of the two sets is shown
    Property<bool> settled{false};      ///< a reading has brought all nine, and no other has begun
    /// What the radio has told of the centres since the last reading began is none: its menu has something else there,
    /// and nothing is sent.
    bool isElsewhere() const;
    /// A value was to be sent, and is not for that reason.
    Signal<> notSent;
    /// The nine values, once the radio has told all of them.
    std::optional<EqValues> shownValues() const;
    EqOtherSet& other() { return m_other; }
    Property<std::string> statusText;

    /// Told before this port opens, whoever asks for it: another port on the same device must be closed now.
    Signal<> beforeOpen;
    Failure openPort();

    /// The value of an item became `newValue`: updates its texts and, with the port open, sends it and its query in one
    /// write. A value outside the item's range is ignored.
    void applyValue(std::size_t item, int newValue);

    void startReading();
    /// One of the two sets is read (anew): the shown one, or the other behind it.
    void readSet(bool processorOn);
    /// A value of one of the two sets goes to the radio; of the shown one like any change.
    void setValue(bool processorOn, std::size_t item, int newValue);
    /// Asks whether the processor is on. If the radio stands otherwise than what is shown, its set is shown and read.
    void askProcessor();
    void onReceive(std::string_view wire);
    void clearReceived() { m_receiveBuffer.clear(); }

    /// Turns the speech processor on or off and reads the set that goes with it. The port is reopened on the way and is
    /// open afterwards, whatever it was; when it cannot be opened nothing is sent, nothing is read, and the set stays.
    Failure switchProcessor(bool on);
    /// The radio would not switch; the set that was shown before is being read again.
    Signal<> switchRefused;

    /// Of the readings; asked at each answer.
    std::function<Pace()> pace = [] { return Pace::Every100Ms; };
    /// How many of the items have been answered since the reading began.
    int answered() const;
    /// A reading is over; from now on values come from the user alone.
    Signal<> readingEnded;

    Phase phase() const { return m_phase; }
    std::size_t lastChanged() const { return m_lastChanged; }
    /// The complete set command of an item.
    const std::string& command(std::size_t item) const { return m_command[item]; }

private:
    void readTick();
    void askNext();
    void goOn(std::size_t told);
    void finishTick();
    void finish();
    void composeCommands();
    std::string itemMenu(std::size_t item) const { return eq::menuItem(item, processorOn); }
    bool takeProcessor(std::string_view piece);
    void showProcessor(bool on);
    void take(char c);
    void takePiece(std::string_view piece);
    void takeAnswer(std::string_view answer);
    void noteStrange(std::string_view answer);
    void takeRefusal();

    MSComm& m_port;
    EqOtherSet m_other;
    std::unique_ptr<Timer> m_readTimer;
    std::unique_ptr<Timer> m_finishTimer;
    std::array<std::string, eqItemCount> m_command;
    std::string m_midCode;   // empty until the middle centre is first applied
    std::string m_highCode;  // empty until the high centre is first applied
    Phase m_phase = Phase::Reading;
    std::size_t m_readIndex = 0;
    std::array<bool, eqItemCount> m_strange{};        // what was told of the item is none of its values
    std::array<std::string, eqItemCount> m_radioHas;  // the set command that would change nothing; empty: not known
    bool m_switching = false;                         // the processor's command may still be refused
    bool m_asksProcessor = false;
    std::size_t m_lastChanged = 0;
    std::string m_receiveBuffer;
    PhaseFlag m_readToggle;
    PhaseFlag m_finishToggle;
    Connections m_connections;
};

}  // namespace korvex
