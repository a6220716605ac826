#include "menu/MenuReader.h"

#include "base/Lines.h"
#include "base/NumberText.h"
#include "menu/MenuFile.h"

namespace korvex {

namespace {

constexpr int intervalMs = 50;  // of which every second tick works
constexpr int patience = 20;    // steps of 100 ms without an answer

}  // namespace

void MenuReader::read(const MenuReading& reading) {
    auto operation = m_link.begin(
        {reading.code, "Reading the menu", menuItemCount, {"item", "items"}, reading.caption, 155, reading.bar});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_answers.clearAnswers();
    m_asked = m_answered = m_silentSteps = 0;
    m_answeredLast = false;
    m_link.panels().Error = "Reading Menu";
    m_link.clearTraffic();
    m_operation->expect({"EX", menuReadCommand(1).size() + 1});  // what is shorter is an adapter's echo
    m_operation->onAnswer([this](std::string_view answer) { return takeAnswer(answer); });
    m_operation->onEnd([this](const Outcome& outcome) { ended.emit(outcome); });
    if (m_link.pace == Pace::Answered) return converse();
    m_operation->every(intervalMs, m_phase, [this] { work(); });
    m_operation->tick();
}

void MenuReader::work() {
    ++m_silentSteps;
    if (m_asked < menuItemCount) return sendNext();
    if (m_silentSteps < patience) return;
    m_answeredLast ? complete() : fail();
}

void MenuReader::sendNext() {
    m_operation->send(menuReadCommand(++m_asked));
    showNext();
}

void MenuReader::showNext() {
    m_link.sent().append(menuReadCommand(m_asked));
    m_link.sent().append(crLf);
    m_operation->step(m_asked);
    m_link.panels().Error = "Reading Menu " + std::to_string(m_asked);
}

Rest MenuReader::takeAnswer(std::string_view answer) {
    // One that nobody has asked for would move every later one into the wrong row.
    if (m_answered >= m_asked) return Rest::GoOn;
    keep(++m_answered, answer);
    m_silentSteps = 0;
    m_answeredLast = m_asked == menuItemCount;
    if (m_answered < menuItemCount) return Rest::GoOn;
    complete();
    return Rest::Discard;
}

void MenuReader::keep(int item, std::string_view answer) {
    m_answers.setAnswer(item, std::string(answer));
    constexpr std::size_t head = 5;  // EX042
    if (!answer.starts_with("EX")) return;
    m_link.noteTold(std::string(answer.substr(2, 3)));
    told.emit(std::string(answer.substr(2, 3)), std::string(answer.substr(head, answer.size() - head - 1)));
}

void MenuReader::converse() {
    const auto next = [this]() -> std::optional<Exchange> {
        if (m_asked == menuItemCount) return std::nullopt;
        const std::string command = menuReadCommand(++m_asked);
        showNext();
        return Exchange{zeroPadded(m_asked, 3), command, {command.substr(0, command.size() - 1), command.size() + 1}};
    };
    const auto take = [this](const Reply& reply) { keep(m_asked, reply.answer); };
    const auto done = [this](const Outcome&) { m_answers.answer(menuItemCount).empty() ? fail() : complete(); };
    m_operation->converse({next, take, done});
}

void MenuReader::complete() {
    m_operation->end({Outcome::Kind::Done, answersInPlace(m_answers), menuItemCount, refusedItems(m_answers), {}});
}

void MenuReader::fail() {
    m_link.panels().Error = "Communication faild ";
    m_operation->end({Outcome::Kind::NoAnswer, answersInPlace(m_answers), menuItemCount, {}, {}});
}

}  // namespace korvex
