#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/Property.h"
#include "base/Signal.h"
#include "cat/CatLink.h"
#include "platform/Clock.h"

namespace korvex {

/// What another program wants of the radio.
struct ForeignCommand {
    /// Gets the answer with its ";", or "?;" when the radio or Korvex refuses. An empty text: what sets was sent and
    /// not refused, or what asks got no answer.
    using Answered = std::function<void(std::string_view wire)>;

    const void* from = nullptr;  ///< who asks: his commands are answered in their order
    std::string wire = {};       ///< with its ";"
    Answered answered = {};
    std::optional<std::string> known = {};  ///< the answer, where the radio need not be asked
    std::int64_t cameAt = 0;                ///< set by the line
};

/// Lets other programs use the line beside Korvex. One of their commands is on its way at a time, and its answer goes
/// to who asked. While an operation of ours has the line nothing of theirs is sent: a question that was answered before
/// gets the same answer again, anything else waits for two seconds and is then refused, because a command that goes out
/// half a minute late is nothing that anybody still wants. When something was set the answers before it are forgotten,
/// be it when our operation is over: until then the radio is what it was when the operation began. What would key the
/// transmitter is refused unless the owner allowed it, and told either way; what ends a transmission goes out at once.
class SharedLine {
public:
    SharedLine(CatLink& link, Clock& clock);
    SharedLine(const SharedLine&) = delete;
    SharedLine& operator=(const SharedLine&) = delete;
    ~SharedLine();

    void ask(ForeignCommand command);
    /// He has left: nothing of his is sent any more, and what he keyed goes back to receive, as it does when the port
    /// is closed and when leave is withdrawn.
    void forget(const void* from);

    void allowTransmit(bool allowed);
    Property<bool> transmitAllowed;  ///< as it was allowed last
    /// Words for the owner, UTF-8.
    Signal<const std::string&> told;
    /// What the radio tells unasked while the line is idle, with its ";".
    Signal<std::string_view> unasked;
    /// The line is idle, and something was set: what the radio has told before may not hold any more.
    Signal<> changed;

    static constexpr std::size_t mostWaiting = 32;  ///< of one program; what it sends beyond is refused

private:
    bool mayGoOut(const ForeignCommand& command);
    bool endsTransmission(const ForeignCommand& command) const;
    void noteKeying(const std::string& wire, const void* from);
    void endTransmissionsOf(const void* from, const std::string& why);
    void endTransmissions(const std::string& why);
    void onClosing();
    void goOn();
    void noteOurs(std::string_view wire);
    bool answerOneThatCanBe();
    std::optional<std::string> answerWithoutRadio(const ForeignCommand& command) const;
    void sendNext();
    void forgetAnswers(const std::string& set);
    bool take(std::string_view piece);
    void onPatience();
    void settle(const std::string& answer);
    void remember(const std::string& question, const std::string& answer);
    void keepQuiet();
    int patience() const;

    CatLink& m_link;
    Clock& m_clock;
    std::unique_ptr<Timer> m_poll;
    std::unique_ptr<Timer> m_patience;
    std::deque<ForeignCommand> m_waiting;
    std::optional<ForeignCommand> m_underWay;
    std::int64_t m_sentAt = 0;
    std::int64_t m_longestDelay = 0;
    std::map<std::string, std::string> m_answers;  // by question: the last ones
    bool m_sending = false;                        // one of theirs, just now
    bool m_oursHasSet = false;                     // and the answers are older than that
    std::map<std::string, const void*> m_keyed;    // by what ends it: who began the transmission
    Connections m_connections;
};

}  // namespace korvex
