#include "cat/Operation.h"

#include <algorithm>
#include <utility>

#include "cat/CatLink.h"
#include "cat/Dialogue.h"

namespace korvex {

Operation::Operation(CatLink& link, Clock& clock, OperationPlan plan)
    : m_link(link),
      m_clock(clock),
      m_plan(std::move(plan)),
      m_pace(clock.makeTimer()),
      m_later(clock.makeTimer()),
      m_silence(clock.makeTimer()),
      m_beganAt(clock.now()) {
    m_paceTick = m_pace->tick.connect([this] { tick(); });
}

Operation::~Operation() {
    if (m_running) release();
}

void Operation::every(int intervalMs, PhaseFlag& phase, std::function<void()> work) {
    m_tick = [&phase, step = std::move(work)] {
        const bool works = phase.isSet();
        phase.invert();
        if (works) step();
    };
    m_pace->setInterval(intervalMs);
    m_pace->setEnabled(m_running);
}

void Operation::tick() {
    if (!m_running || !m_tick) return;
    const auto step = m_tick;  // a copy: the step may end the operation, and its owner begin another
    step();
}

void Operation::after(int ms, std::function<void()> work) {
    m_later->setEnabled(false);
    if (!m_running) return;
    m_later->setInterval(ms);
    m_laterTick = m_later->tick.connect([this, step = std::move(work)] {
        m_later->setEnabled(false);
        step();
    });
    m_later->setEnabled(true);
}

void Operation::onSilence(int ms, std::function<void()> silence) {
    m_silence->setEnabled(false);
    if (!m_running || ms == 0) return;
    m_silence->setInterval(ms);
    m_silenceTick = m_silence->tick.connect([this, step = std::move(silence)] {
        m_silence->setEnabled(false);
        step();
    });
    m_silence->setEnabled(true);
}

void Operation::heard() {
    if (!m_silence->Enabled()) return;
    m_silence->setEnabled(false);
    m_silence->setEnabled(true);
}

void Operation::send(std::string_view wire) {
    m_written.clear();
    if (m_running) m_link.send(wire);
}

void Operation::write(const std::string& item, std::string_view wire) {
    send(wire);
    m_written = item;
}

void Operation::converse(Conversation conversation) {
    m_onStrange = nullptr;
    if (m_link.recollection) conversation = recollecting(std::move(conversation), *m_link.recollection);
    const double characterMs = m_link.port().lineSettings().characterTime();
    const KnownRadio& radio = m_link.known();
    const Tempo tempo(characterMs, radio.longestDelayMs, radio.obeysOneAtATime);
    std::make_shared<Dialogue>(*this, std::move(conversation), tempo)->begin();
}

void Operation::noteRefusal() {
    if (!m_written.empty()) note(&Outcome::refused, std::exchange(m_written, {}));
}

Rest Operation::takePiece(std::string_view piece) {
    heard();
    const auto answer = answerIn(m_expectation, piece);
    if (answer == "?;") noteRefusal();
    const auto step = answer ? m_onAnswer : m_onStrange;  // a copy: the step may set another
    return step ? step(answer ? *answer : piece) : Rest::GoOn;
}

void Operation::step(int item, int bar) {
    if (!m_running) return;
    m_item = item;
    if (m_plan.caption.empty()) return;
    m_link.progress().value = bar;
    m_link.progress().detail = progressText();
}

std::string Operation::standing() const {
    std::string text = m_plan.doing;
    if (m_item > 0) text += ", " + m_plan.words.one + " " + std::to_string(m_item);
    if (m_item > 0 && m_plan.items > 0) text += " of " + std::to_string(m_plan.items);
    return text;
}

/// How long the rest takes is guessed from what the first items took, once that means something.
std::string Operation::progressText() const {
    constexpr std::int64_t meaningfulMs = 2'000;
    std::string text = m_plan.words.one + " " + std::to_string(m_item) + " of " + std::to_string(m_plan.items);
    const std::int64_t elapsed = m_clock.now() - m_beganAt;
    const int begun = m_item - 1;
    if (begun < 1 || elapsed < meaningfulMs) return text;
    const std::int64_t left = elapsed * std::max(m_plan.items - begun, 0) / begun;
    return text + ", about " + std::to_string((left + 999) / 1000) + " s left";
}

void Operation::show() {
    auto& progress = m_link.progress();
    if (m_plan.caption.empty()) return;
    progress.caption = m_plan.caption;
    progress.maximum = m_plan.maximum;
    progress.value = m_plan.value;
    progress.detail = "";
    progress.cancellable = true;
    progress.show();
}

void Operation::hide() {
    for (auto* timer : {m_pace.get(), m_later.get(), m_silence.get()}) timer->setEnabled(false);
    if (m_plan.caption.empty()) return;
    m_link.progress().cancellable = false;
    m_link.progress().hide();
}

void Operation::release() {
    m_running = false;
    hide();
    m_link.giveBack(*this);
}

void Operation::end(const Outcome& outcome) {
    if (!m_running) return;
    release();
    if (const auto told = std::exchange(m_onEnd, nullptr)) told(outcome);
}

void Operation::finish(int items) {
    constexpr int settleMs = 600;  // a slow radio answers within half a second
    hide();
    m_finished = items;
    m_link.answers().showAs(ActiveOperation::Idle);
    after(settleMs, [this] { breakOff(Outcome::Kind::Done); });
}

Outcome Operation::outcome(Outcome::Kind kind, int done, int of) const {
    Outcome outcome = m_noted;
    outcome.kind = kind;
    outcome.done = std::max(done, 0);
    outcome.of = of;
    return outcome;
}

void Operation::breakOff(Outcome::Kind kind, std::string reason) {
    if (m_finished)
        return end(outcome(Outcome::Kind::Done, *m_finished - static_cast<int>(m_noted.refused.size()), *m_finished));
    Outcome broken = outcome(kind, m_item - 1, m_plan.items);
    broken.at = m_item;
    broken.reason = std::move(reason);
    end(broken);
}

}  // namespace korvex
