#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "cat/ActiveOperation.h"
#include "cat/AnswerRouter.h"
#include "cat/CommTest.h"
#include "cat/ConnectClock.h"
#include "cat/EchoGuard.h"
#include "cat/KnownRadio.h"
#include "cat/Operation.h"
#include "cat/Pace.h"
#include "cat/PortIndicators.h"
#include "cat/Recollection.h"
#include "cat/StatusPanels.h"
#include "cat/TrafficDisplay.h"
#include "platform/Clock.h"
#include "platform/MSComm.h"
#include "platform/MsgBox.h"
#include "platform/ProgressWindow.h"

namespace korvex {

/// The one serial session with the radio. Everything that is sent goes out as the caller built it; everything that
/// comes is cut at ";" and handed to the operation that is active.
class CatLink {
public:
    CatLink(MSComm& port, Clock& clock, MsgBox& msgBox, ProgressWindow& progress);

    // --- the line
    MSComm& port() { return m_port; }
    bool PortOpen() const { return m_port.PortOpen(); }
    /// Opens the closed port or closes the open one, then brings every indicator into line. A port that refuses is told
    /// in a box; the indicators then show what is.
    void togglePort();
    /// Closes without a question if it is open.
    void closePort();
    /// The communication test still waits for its verdict.
    bool testing() const { return m_commTest.running(); }
    /// Sends the complete wire text as it is; nothing happens while the port is closed.
    void send(std::string_view wire);

    // --- the operation that has the line
    Property<Pace> pace{Pace::Every100Ms};  ///< of the operations that begin from now on
    /// What the conversations from now on need not ask, and where their answers are kept.
    std::optional<Recollection> recollection;
    /// The line for one operation. Nothing while the port is closed, or while another operation has it and the person
    /// who is asked does not let it be stopped.
    std::unique_ptr<Operation> begin(OperationPlan plan);
    /// Whether the line is free now: nothing runs, or the person has just let it be stopped.
    bool freeLine();
    /// An operation is being ended because another one wants the line, or the program its end.
    bool givesWay() const { return m_givesWay; }
    /// What the operations are a part of, for the person who is asked: "Backup"; empty for one by itself.
    void workFor(std::string task) { m_task = std::move(task); }
    /// Ends the operation that runs, if any, without a question: by itself, or because another one or the end of the
    /// program wants the line and the person has said so.
    enum class For { Itself, Another };
    void breakOff(Outcome::Kind kind, For what = For::Itself);
    /// Nobody has the line, nor is between two operations of one task; what is sent now disturbs nobody.
    bool isIdle() const { return PortOpen() && !m_operation && m_task.empty() && !testing(); }
    /// Who has the line, if anybody.
    const Operation* operation() const { return m_operation; }
    /// For an operation that could not begin: why.
    Outcome notBegun() const;
    /// What a writing has come to, for the person: in the receive display when all is well, else in the panel.
    void report(const Outcome& outcome, const ItemWords& words);
    /// All has been written.
    void showTerminated();
    /// Called by the operation that ends.
    void giveBack(const Operation& operation);

    ActiveOperation activeOperation() const { return m_router.active(); }
    /// Where what comes is cut.
    AnswerRouter& answers() { return m_router; }

    // --- what is known of the radio
    /// What a check has shown; it counts wherever the port that it was made at is open.
    void remember(KnownRadio radio);
    /// Of the radio at a port, which `MSComm::deviceText` names; without a check there, nothing.
    KnownRadio knownAt(const std::string& device) const;
    /// Of the radio at the port that is open.
    const KnownRadio& known() const { return m_knownHere; }
    /// The radio has told this menu item: whether or not it was known to refuse it, it does not any more.
    void noteTold(const std::string& item);
    Signal<const KnownRadio&> knownChanged;

    // --- what windows show
    TrafficDisplay& received() { return m_received; }  ///< `Term2`
    TrafficDisplay& sent() { return m_sent; }          ///< `term3`
    Property<std::string> lineWritten;                 ///< `Text2`: the line that a write has just sent, UTF-8
    StatusPanels& panels() { return m_panels; }
    PortIndicators& indicators() { return m_indicators; }
    ProgressWindow& progress() { return m_progress; }
    /// Empties both displays, and what has come of an answer.
    void clearTraffic();

    /// The port has just closed, by whatever cause. Whoever has an operation is told by its end.
    Signal<> closed;
    /// The port is about to be closed: the last that is sent now still leaves.
    Signal<> closing;
    Signal<> opening;  ///< the port is about to be opened: whoever holds the device lets it go
    Signal<> opened;   ///< the port has just been opened

    /// The open line has been seen to return what is sent.
    bool returnsWhatIsSent() const { return m_echo.echoes(); }
    Signal<> echoFound;  ///< the open line returns what is sent, which is no answer; told once after each opening

    /// All wire text as it goes and as it comes, for those who keep a record of it. What they do does not change it.
    Signal<std::string_view> went;
    Signal<std::string_view> came;

    /// Before the program ends: waits, letting other events run, until all output has left, then closes the port. After
    /// each 10 s without an end the user is asked; false when the user aborts, and the port then stays open.
    bool drainAndClose();

private:
    bool drain();
    bool isEcho(std::string_view piece);
    void onComm(CommEvent event);
    void onLost(const RuntimeError& error);
    void Timer2_Timer();
    void recognize();
    void showPortState();
    void showOpened();
    void showClosed();

    MSComm& m_port;
    Clock& m_clock;
    MsgBox& m_msgBox;
    ProgressWindow& m_progress;
    TrafficDisplay m_received;
    TrafficDisplay m_sent;
    StatusPanels m_panels;
    PortIndicators m_indicators;
    AnswerRouter m_router;
    CommTest m_commTest;
    EchoGuard m_echo;
    ConnectClock m_connectClock;
    KnownRadio m_known;
    KnownRadio m_knownHere;
    std::unique_ptr<Timer> m_timer2;
    std::string standing() const;

    std::string m_task;
    Operation* m_operation = nullptr;  // the one that has the line; owned by whoever began it
    bool m_givesWay = false;
    bool m_draining = false;
    Connections m_connections;
};

}  // namespace korvex
