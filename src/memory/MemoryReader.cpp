#include "memory/MemoryReader.h"

#include <numeric>
#include <utility>

#include "base/Lines.h"
#include "base/NumberText.h"
#include "memory/MemoryExchange.h"
#include "memory/MemoryFile.h"
#include "memory/MemoryRecord.h"

namespace korvex {

namespace {

constexpr int intervalMs = 50;  // of which every second tick works
constexpr int patience = 20;    // steps of 100 ms without an answer
constexpr std::size_t aPair = 2;

std::string channels(int count) {
    return std::to_string(count) + (count == 1 ? " channel" : " channels");
}

}  // namespace

void MemoryReader::read(ActiveOperation code, const std::string& caption, ChannelRange range) {
    auto operation = m_link.begin({code,
                                   "Reading the memories",
                                   range.count(),
                                   {"memory", "memories"},
                                   caption,
                                   range.count() + (range.last > lastMemoryChannel ? 0 : 2)});
    if (!m_link.PortOpen() || operation) m_link.panels().Error = "";
    if (!operation) return ended.emit(m_link.notBegun());
    m_operation = std::move(operation);
    m_link.clearTraffic();
    m_range = range;
    m_channels.resize(static_cast<std::size_t>(range.count()));
    std::iota(m_channels.begin(), m_channels.end(), range.first);
    m_asked = m_answered = 0;
    m_again = false;
    m_refused.clear();
    m_found.clear();
    m_named.clear();
    m_doubtful.clear();
    m_silence = Silence::None;
    m_silentSteps = 0;
    m_operation->expect({"MR", shortestMemoryAnswer});
    m_operation->onAnswer([this](std::string_view answer) { return takeAnswer(answer); });
    m_operation->onEnd([this](const Outcome& outcome) { onEnd(outcome); });
    if (m_link.pace == Pace::Answered || isOptional()) return converse();
    m_operation->every(intervalMs, m_phase, [this] { sendNext(); });
    m_operation->tick();
}

/// Nobody knows whether the radio has them: a refused first pair says that it has not, or that none are set.
bool MemoryReader::tellsNone() const {
    return isOptional() && m_found.empty() && m_answered >= aPair;
}

/// No command beyond the last channel goes out: an answer that was lost on the way must be missed, not be replaced by
/// the answer of a channel that nobody wants.
void MemoryReader::sendNext() {
    if (m_asked < m_channels.size()) return ask(m_channels[m_asked++]);
    if (++m_silentSteps == patience) fail();
}

void MemoryReader::ask(int channel) {
    m_operation->send(memoryReadCommand(channel));
    show(channel);
}

void MemoryReader::show(int channel) {
    m_link.sent().append(memoryReadCommand(channel));
    m_link.sent().append(crLf);
    m_link.panels().Error = "Reading Memory " + std::to_string(channel);
    if (!m_again) m_operation->step(channel - m_range.first + 1);
}

Rest MemoryReader::takeAnswer(std::string_view answer) {
    if (m_answered == m_asked) return Rest::GoOn;  // unasked
    m_silentSteps = 0;
    return take(m_channels[m_answered++], answer) ? Rest::GoOn : finish();
}

/// Whether there are more channels to ask.
bool MemoryReader::take(int channel, std::string_view answer) {
    if (isErrorAnswer(answer)) {
        m_refused.push_back(channel);
    } else {
        keep(channel, answer);
    }
    if (m_answered < m_channels.size()) return true;
    if (m_again || m_refused.empty()) return false;
    m_again = true;
    m_channels = std::exchange(m_refused, {});
    m_asked = m_answered = 0;
    return true;
}

/// The bar goes on: a slow radio takes a minute for all that it has refused.
void MemoryReader::showAgain() {
    m_link.progress().maximum = m_range.count() + static_cast<int>(m_channels.size());
    m_operation->step(m_range.count(), m_range.count() + static_cast<int>(m_asked));
}

void MemoryReader::converse() {
    const auto next = [this]() -> std::optional<Exchange> {
        if (m_silence == Silence::AsksAnother) return memoryReading(1);
        if (m_asked == m_channels.size() || tellsNone() || m_silence == Silence::OfTheChannel) return std::nullopt;
        const int channel = m_channels[m_asked++];
        show(channel);
        if (m_again) showAgain();
        return memoryReading(channel);
    };
    const auto heard = [this](const Reply& reply) {
        if (noteSilence(reply)) return;
        take(m_channels[m_answered++], reply.answer);
    };
    const auto done = [this](const Outcome& outcome) {
        if (!outcome.isDone() && m_silence != Silence::OfTheChannel) return fail();
        finish();
    };
    m_operation->converse({next, heard, done});
}

/// A radio may pass over a channel that it does not have. It is silent for another reason if it does not answer to one
/// that it has, either: then nobody knows what it holds. Whether the reply is to be passed over.
bool MemoryReader::noteSilence(const Reply& reply) {
    const bool silent = reply.kind == Reply::Kind::None;
    if (m_silence == Silence::AsksAnother) {
        m_silence = silent ? Silence::None : Silence::OfTheChannel;
        return true;
    }
    if (silent && isOptional() && m_found.empty()) m_silence = Silence::AsksAnother;
    return false;
}

void MemoryReader::onEnd(const Outcome& outcome) {
    if (!outcome.isDone()) {
        m_found = std::exchange(m_named, {});
        m_doubtful.clear();
    }
    ended.emit(outcome);
}

void MemoryReader::keep(int channel, std::string_view answer) {
    const int named = isUndamaged(answer) ? parseWhole(memoryFieldIn(answer, MemoryField::Channel)).value_or(0) : 0;
    if (m_range.has(named)) m_named[named] = answer;
    const std::string command = memoryReadCommand(channel);
    const auto stored = storedMemoryString(command, answer);
    if (!stored) return;
    m_found[channel] = *stored;
    if (named != channel) m_doubtful.insert(channel);
    m_link.received().append(command + *stored + std::string(crLf));
}

void MemoryReader::fail() {
    m_link.panels().Error = "Communication faild ";
    m_operation->end({Outcome::Kind::NoAnswer, found(), m_range.count(), {}, {}});
}

Rest MemoryReader::finish() {
    std::vector<std::string> refused;
    for (const int channel : m_refused) refused.push_back(channelText(channel));
    m_operation->end({Outcome::Kind::Done, found(), m_range.count(), std::move(refused), {}});
    return Rest::Discard;
}

std::string MemoryReader::told(int channel) const {
    const auto found = m_found.find(channel);
    return found == m_found.end() ? "?;" : found->second;
}

MemoryTable MemoryReader::table() const {
    MemoryTable table;
    int slot = 0;
    for (const auto& [channel, stored] : m_found) table.set(++slot, stored);
    return table;
}

MemoryTable MemoryReader::undamaged() const {
    MemoryTable table;
    int slot = 0;
    for (const auto& [channel, stored] : m_found) {
        if (!m_doubtful.contains(channel)) table.set(++slot, stored);
    }
    return table;
}

std::vector<std::string> MemoryReader::damaged() const {
    std::vector<std::string> names;
    for (const auto& [channel, stored] : m_found) {
        if (m_doubtful.contains(channel)) names.push_back(channelText(channel));
    }
    return names;
}

std::string MemoryReader::fileText() const {
    return memoryFileText(table(), found());
}

std::vector<std::string> MemoryReader::remarks() const {
    std::vector<std::string> remarks;
    const int refused = static_cast<int>(m_refused.size());
    if (refused > 0) remarks.push_back("refused or empty: " + channels(refused));
    if (const int count = static_cast<int>(damaged().size()); count > 0) {
        remarks.push_back("Attention: " + channels(count) + " came damaged, or told of another channel.");
        remarks.emplace_back("Please read the memories again.");
    }
    return remarks;
}

}  // namespace korvex
