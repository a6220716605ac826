#include "keyer/KeyerReader.h"

#include <algorithm>

#include "base/Lines.h"

namespace korvex {

namespace {

constexpr int intervalMs = 200;        // of which every second tick works
constexpr std::size_t headLength = 3;  // "KM1" in front of the text
constexpr int patience = 3;            // steps of 400 ms without an answer

}  // namespace

void KeyerReader::read() {
    auto operation = m_link.begin({ActiveOperation::KeyerRead,
                                   "Reading the keyer memories",
                                   keyerMemories,
                                   {"memory", "memories"},
                                   "Read Keyer Memory of FT-2000",
                                   10,
                                   1});
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_link.clearTraffic();
    m_link.lineWritten = "";
    m_texts = {};
    m_told.fill(Told::Nothing);
    m_asked = m_silentSteps = 0;
    m_operation->expect({"KM", 0, true});
    m_operation->onAnswer([this](std::string_view answer) { return takeKeyerAnswer(answer); });
    m_operation->onStrange([this](std::string_view piece) { return takeStrange(piece); });
    m_operation->onEnd([this](const Outcome& outcome) { ended.emit(outcome); });
    began.emit();
    if (m_link.pace == Pace::Answered) return converse();
    m_operation->every(intervalMs, m_phase, [this] { queryNext(); });
}

int KeyerReader::count(Told what) const {
    return static_cast<int>(std::count(m_told.begin(), m_told.end(), what));
}

void KeyerReader::queryNext() {
    if (m_asked == keyerMemories) {
        if (!waitsForRest()) finish();
        return;
    }
    ++m_asked;
    m_operation->step(m_asked, m_link.progress().value);
    m_operation->send(keyerReadCommand(m_asked));
}

void KeyerReader::converse() {
    const auto next = [this]() -> std::optional<Exchange> {
        if (m_asked == keyerMemories) return std::nullopt;
        ++m_asked;
        m_operation->step(m_asked, m_link.progress().value);
        return Exchange{keyerHead(m_asked), keyerReadCommand(m_asked), {keyerHead(m_asked), 0, true}};
    };
    const auto heard = [this](const Reply& reply) {
        if (reply.kind == Reply::Kind::None) return;
        m_link.received().append(crLf);
        store(m_asked, reply.answer, reply.kind == Reply::Kind::Answer ? Told::Memory : Told::Refused);
    };
    m_operation->converse({next, heard, [this](const Outcome&) { finish(); }});
}

/// Whether the answers that are still missing may come: not from a radio that has said nothing at all.
bool KeyerReader::waitsForRest() {
    const int untold = count(Told::Nothing);
    return untold > 0 && untold < keyerMemories && ++m_silentSteps <= patience;
}

void KeyerReader::finish() {
    const bool all = answered() == keyerMemories;
    const bool toldOrRefused = answered() + refused() == keyerMemories;
    const auto unlessAll = toldOrRefused ? Outcome::Kind::Refused : Outcome::Kind::NoAnswer;
    m_link.progress().value = 0;
    m_operation->end({all ? Outcome::Kind::Done : unlessAll, answered(), keyerMemories, refusedNames(), {}});
}

std::vector<std::string> KeyerReader::refusedNames() const {
    std::vector<std::string> names;
    for (int memory = 1; memory <= keyerMemories; ++memory) {
        if (wasRefused(memory)) names.push_back(keyerHead(memory));
    }
    return names;
}

Rest KeyerReader::takeKeyerAnswer(std::string_view answer) {
    m_link.received().append(crLf);
    if (m_asked == 0) return Rest::Discard;  // before the first query nothing of what comes is an answer
    m_silentSteps = 0;
    const int owner = ownerOf(answer);
    const Told unlessOwned = answer == "?;" ? Told::Refused : Told::Else;
    store(owner == 0 ? m_asked : owner, answer, owner == 0 ? unlessOwned : Told::Memory);
    return Rest::Discard;
}

/// It stands for the answer until that has come; the answer may be right behind it.
Rest KeyerReader::takeStrange(std::string_view piece) {
    m_link.received().append(crLf);
    if (m_asked == 0) return Rest::Discard;
    m_silentSteps = 0;
    store(m_asked, piece, Told::Else);
    return Rest::GoOn;
}

void KeyerReader::store(int memory, std::string_view answer, Told what) {
    if (what != Told::Memory && toldOf(memory) == Told::Memory) return;  // unasked, behind the answer
    const bool hasText = answer.size() > headLength;
    auto text = hasText ? answer.substr(headLength, answer.size() - headLength - 1) : std::string_view();
    if (m_link.known().closesKeyerTexts && text.ends_with('}')) text.remove_suffix(1);
    keyerText(m_texts, memory) = WireText(text);
    toldOf(memory) = what;
    m_link.progress().value = m_link.progress().value + 1;
    told.emit(memory);
}

/// The memory that an answer tells of: the one that was asked for last, or one before it that has not been told yet.
/// 0 when it names none of these.
int KeyerReader::ownerOf(std::string_view answer) const {
    for (int memory = m_asked - 1; memory > 0; --memory) {
        if (toldOf(memory) != Told::Memory && answer.starts_with(keyerHead(memory))) return memory;
    }
    return answer.starts_with(keyerHead(m_asked)) ? m_asked : 0;
}

}  // namespace korvex
