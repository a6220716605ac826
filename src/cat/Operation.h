#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cat/ActiveOperation.h"
#include "cat/Exchange.h"
#include "cat/Expectation.h"
#include "cat/Outcome.h"
#include "cat/PhaseFlag.h"
#include "platform/Clock.h"

namespace korvex {

class CatLink;

/// What is said of an operation when it begins.
struct OperationPlan {
    ActiveOperation code;      ///< how its traffic is shown
    std::string doing;         ///< "Reading menu": for the person who wants the line meanwhile, UTF-8
    int items = 0;             ///< how many it has to do; 0: it is not counted
    ItemWords words = {};      ///< what they are called
    std::string caption = {};  ///< of the progress window; empty: the operation shows none
    int maximum = 100;         ///< of its bar
    int value = 0;             ///< that the bar begins with
};

/// The line to the radio, for as long as an operation has it: `CatLink::begin` gives it to one at a time. It owns the
/// answers, the sending, the pace, the progress window and the end. A closed port, Cancel and the end of the program
/// end it as `end` does; whoever has it is told once, through `onEnd`. Ended, it sends nothing and calls nobody.
///
///     m_operation = link.begin({ActiveOperation::KeyerRead, "Reading the keyer", 5, ...});
///     if (!m_operation) return;                                   // closed, or another has the line and keeps it
///     m_operation->expect({"KM"});
///     m_operation->onAnswer([this](std::string_view answer) { ... return Rest::GoOn; });
///     m_operation->onEnd([this](const Outcome& outcome) { ... });
///     m_operation->every(50, m_phase, [this] { sendNext(); });
class Operation {
public:
    using AnswerStep = std::function<Rest(std::string_view wire)>;
    using EndStep = std::function<void(const Outcome& outcome)>;

    Operation(CatLink& link, Clock& clock, OperationPlan plan);
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;
    /// Gives the line back without a word.
    ~Operation();

    bool running() const { return m_running; }
    const OperationPlan& plan() const { return m_plan; }

    /// What an answer looks like; without it every piece that ends in ";" is one.
    void expect(Expectation expectation) { m_expectation = std::move(expectation); }
    /// Gets each answer, or a refusal as "?;", cut and freed of noise. What comes unasked and an adapter's
    /// echo are not among them.
    void onAnswer(AnswerStep step) { m_onAnswer = std::move(step); }
    /// Gets what came and is no answer, as it came: for those who take it for want of a better one.
    void onStrange(AnswerStep step) { m_onStrange = std::move(step); }
    /// Told exactly once, however it ends, with the line free again.
    void onEnd(EndStep step) { m_onEnd = std::move(step); }

    /// Works at every second tick of `intervalMs`. The flag outlives the operation: a run begins with the half step
    /// that the run before it ended with.
    void every(int intervalMs, PhaseFlag& phase, std::function<void()> work);
    /// One tick at once: how most sequences begin.
    void tick();
    /// Once, after `ms`; in place of what was to come after some time before.
    void after(int ms, std::function<void()> work);
    /// Called, once, when nothing has come for `ms` that ends in ";". 0 ends the watch.
    void onSilence(int ms, std::function<void()> silence);
    /// Something has happened that the silence counts from.
    void heard();

    /// Sends the complete wire text as it is.
    void send(std::string_view wire);
    /// The same for what sets `item` ("042"): a refusal that comes before anything else is sent is that item's.
    void write(const std::string& item, std::string_view wire);
    /// One exchange after the other, each when the one before has its answer (Dialogue).
    void converse(Conversation conversation);
    /// An item that belongs to one of the outcome's lists.
    void note(std::vector<std::string> Outcome::*list, std::string item) { (m_noted.*list).push_back(std::move(item)); }
    /// Those lists, as far as they have come.
    const Outcome& noted() const { return m_noted; }
    std::int64_t now() const { return m_clock.now(); }

    /// Item `item` (from 1) is being done now; `bar` is what the progress bar shows.
    void step(int item, int bar);
    void step(int item) { step(item, item); }
    int item() const { return m_item; }

    /// All has gone out, and late refusals alone are waited for.
    bool finished() const { return m_finished.has_value(); }

    /// "Reading menu, item 34 of 149".
    std::string standing() const;

    /// `done` and `of` are as given. The items that were done before the present one count where nothing was given and
    /// it is broken off.
    void end(const Outcome& outcome);
    /// All `items` that there were to write have gone out. It ends as done, less what was refused, when a slow radio
    /// has had its time to refuse the last one, too; whoever wants the line has it before that.
    void finish(int items);
    /// Broken off: what was done before the present item is done.
    void breakOff(Outcome::Kind kind, std::string reason = {});

private:
    friend class CatLink;
    Rest takePiece(std::string_view piece);
    void show();
    void hide();
    void noteRefusal();
    void release();
    std::string progressText() const;
    Outcome outcome(Outcome::Kind kind, int done, int of) const;

    CatLink& m_link;
    Clock& m_clock;
    OperationPlan m_plan;
    Expectation m_expectation;
    AnswerStep m_onAnswer;
    AnswerStep m_onStrange;
    EndStep m_onEnd;
    std::function<void()> m_tick;
    std::unique_ptr<Timer> m_pace;
    std::unique_ptr<Timer> m_later;
    std::unique_ptr<Timer> m_silence;
    Connection m_paceTick;
    Connection m_laterTick;
    Connection m_silenceTick;
    std::int64_t m_beganAt;
    int m_item = 0;
    std::string m_written;          // the item that a refusal would be of
    Outcome m_noted;                // its lists
    std::optional<int> m_finished;  // how many items have gone out
    bool m_running = true;
};

}  // namespace korvex
