// The targets of the shared port: other programs that say anything.

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "base/AsciiText.h"
#include "cat/TransmitGuard.h"
#include "fakes/FakeDialogs.h"
#include "fakes/FakeDoors.h"
#include "fakes/ScriptedDevice.h"
#include "fakes/VirtualClock.h"
#include "fuzz/Fuzz.h"
#include "fuzz/Judge.h"
#include "share/ForeignText.h"
#include "share/PortShare.h"
#include "share/ReadForms.h"

namespace korvex {

namespace {

/// The shared port with a radio, and the programs that talk to it: characters are what one of them says, "~"
/// and another character is something that happens.
///
///     ~~         says "~"
///     ~0..~9     time passes
///     ~a ~b ~c   the program at the device, at the first connection, at the second talks from here on
///     ~L         it leaves
///     ~O         an operation of ours has the line, or gives it back
///     ~T         the owner lets them transmit
///     ~C         the port is closed, or opened
///     ~D ~R ~H   the radio turns deaf, refuses everything, is healthy again
class Shared {
public:
    Shared() {
        m_radio.answer = [this](std::string_view wire) { return answerOf(wire); };
        m_link.togglePort();
        m_clock.advance(1'500);
        EXPECT_FALSE(m_share.openTerminal(""));
        EXPECT_FALSE(m_share.listen(4532));
        m_connections += m_link.went.connect([this](std::string_view wire) { watch(wire); });
    }

    void play(std::string_view input, char speaker) {
        m_speaker = speaker;
        while (!input.empty()) {
            const auto said = input.substr(0, input.find('~'));
            say(said);
            input.remove_prefix(said.size());
            if (input.size() < 2) break;
            happen(input[1]);
            input.remove_prefix(2);
        }
    }

    /// Everybody leaves; then nothing is sent any more, and the radio receives.
    void end() {
        m_operation.reset();
        const bool wasOpen = m_link.PortOpen();
        for (const char one : {'a', 'b', 'c'}) {
            if (program(one).caller != nullptr) program(one).leave();
        }
        m_clock.advance(10'000);
        const auto sent = m_radio.writes.size();
        m_clock.advance(10'000);
        EXPECT_EQ(m_radio.writes.size(), sent) << "sends though nobody is there";
        if (!m_mayTransmit && !m_sets.empty()) {
            EXPECT_EQ(fuzz::keysTransmitterWith(m_sets), "");
        }
        EXPECT_FALSE(wasOpen && (m_keyed['T'] || m_keyed['M'])) << "transmits for nobody";
        checkHeard();
    }

private:
    fakes::FakeProgram& program(char one) { return one == 'a' ? m_doors.atDevice : m_callers.at(one == 'b' ? 0 : 1); }

    void say(std::string_view bytes) {
        if (bytes.empty()) return;
        auto& speaker = program(m_speaker);
        if (speaker.caller == nullptr) m_doors.connect(speaker);
        if (m_speaker == 'a') {
            for (const auto& command : m_cutter.take(bytes)) noteAsked(command.wire);
        }
        speaker.say(bytes);
    }

    void noteAsked(const std::string& wire) {
        if (wire.size() > 2) m_asked.insert(inCapitals(wire.substr(0, 2)));
    }

    void happen(char what) {
        constexpr std::array<int, 10> times = {1, 10, 30, 60, 100, 500, 1'000, 2'000, 3'000, 10'000};
        switch (what) {
            case '~': return say("~");
            case 'a':
            case 'b':
            case 'c': m_speaker = what; return;
            case 'L':
                if (program(m_speaker).caller != nullptr) program(m_speaker).leave();
                if (m_speaker == 'a') m_cutter.forget();
                return;
            case 'O': return toggleOperation();
            case 'T': m_mayTransmit = true; return m_share.allowTransmit(true);
            case 'C': return m_link.togglePort();
            case 'D': m_deaf = true; return;
            case 'R': m_refuses = true; return;
            case 'H': m_deaf = m_refuses = false; return;
            default:
                if (what < '0' || what > '9' || ++m_steps > mostSteps) return;
                m_clock.advance(times.at(static_cast<std::size_t>(what - '0')));
        }
    }

    void toggleOperation() {
        if (m_operation && m_operation->running()) return m_operation->end({});
        m_operation = m_link.begin({ActiveOperation::MenuReadToFile, "Reading"});
        if (m_operation) m_operation->send("EX042;");
    }

    /// While ours has the line only ours is sent, and what ends a transmission.
    void watch(std::string_view wire) {
        if (!asks(wire)) m_sets += wire;
        const std::string heard = inCapitals(std::string(wire));
        if (keysTransmitter(wire)) m_keyed[heard[0]] = true;
        if (heard == "TX0;" || heard == "MX0;") m_keyed[heard[0]] = false;
        if (m_link.operation() == nullptr) return;
        EXPECT_TRUE(wire == "EX042;" || heard == "TX0;" || heard == "MX0;") << wire;
    }

    /// As a radio that knows everything and takes everything.
    std::string answerOf(std::string_view wire) const {
        if (m_deaf) return "";
        if (m_refuses) return "?;";
        if (!asks(wire)) return "";
        const std::string head(wire.substr(0, wire.size() - 1));
        return head + (head == "FA" || head == "FB" ? "14195000;" : "0;");
    }

    /// At the device are answers to what was asked there, and refusals; what the radio tells unasked has FA as its
    /// head.
    void checkHeard() {
        for (const auto& piece : fuzz::cutAt(';', m_doors.atDevice.heard)) {
            if (piece.empty() || piece == "?") continue;
            EXPECT_TRUE(m_asked.contains(piece.substr(0, 2)) || m_asked.contains("AI")) << piece;
        }
        for (const auto& caller : m_callers) EXPECT_TRUE(caller.heard.empty() || caller.heard.ends_with('\n'));
    }

    static constexpr int mostSteps = 40;

    fakes::VirtualClock m_clock;
    fakes::ScriptedPorts m_ports{m_clock};
    fakes::ScriptedLine& m_radio = m_ports.plug(1);
    MSComm m_port{m_ports};
    fakes::FakeMsgBox m_msgBox;
    ProgressWindow m_progress;
    CatLink m_link{m_port, m_clock, m_msgBox, m_progress};
    fakes::FakeDoors m_doors;
    std::array<fakes::FakeProgram, 2> m_callers;
    PortShare m_share{m_link, m_clock, &m_doors};
    std::unique_ptr<Operation> m_operation;
    ForeignText m_cutter;
    std::set<std::string> m_asked;
    char m_speaker = 'a';
    int m_steps = 0;
    std::string m_sets;            // what was sent and is no question
    std::map<char, bool> m_keyed;  // by TX and by MX
    bool m_mayTransmit = false;
    bool m_deaf = false;
    bool m_refuses = false;
    Connections m_connections;
};

}  // namespace

/// Programs at the shared device, which speak as to the radio's serial port.
FUZZ_TARGET(share_device) {
    Shared shared;
    shared.play(input, 'a');
    shared.end();
}

/// Programs that speak hamlib's network protocol.
FUZZ_TARGET(share_network) {
    Shared shared;
    shared.play(input, 'b');
    shared.end();
}

}  // namespace korvex
