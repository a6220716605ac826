#include "radio/RadioLine.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/NumberText.h"
#include "radio/Commands.h"
#include "radio/MenuItems.h"

namespace korvex {

namespace {

constexpr double gapInSplitAnswerMs = 7;
constexpr double longestHoldMs = 250;  // a glued answer does not wait longer for the next one
constexpr std::array<double, 4> timeOutsMs = {10, 100, 1000, 3000};

/// Counts down to the one command that is meant.
bool countsDownToNow(std::optional<int>& counter) {
    if (!counter || *counter <= 0) return false;
    if (--*counter > 0) return false;
    counter.reset();
    return true;
}

/// As a line does that is set to another parity than the radio.
void raiseEighthBit(std::string& answer) {
    for (std::size_t i = 2; i < answer.size(); i += 3) {
        if (answer[i] != ';') answer[i] = static_cast<char>(static_cast<unsigned char>(answer[i]) | 0x80U);
    }
}

}  // namespace

void RadioLine::hear(double nowMs, std::string_view characters) {
    if (faults.echoes && !m_goneAt) putOnLine(nowMs, characters);
    for (const char c : characters) {
        dropIfTooSlow(nowMs);
        m_lastHeard = nowMs;
        if (const auto command = m_cutter.take(c)) hearCommand(nowMs, *command);
    }
}

void RadioLine::dropIfTooSlow(double nowMs) {
    if (!enforcesTimeOut || !m_cutter.insideCommand()) return;
    const auto& value = m_radio.state.menu.at(menuCatTimeOut);
    const auto choice = static_cast<std::size_t>(parseWhole(value).value_or(0));
    if (nowMs - m_lastHeard <= timeOutsMs.at(choice)) return;
    m_cutter.drop();
    send(nowMs + turnaroundMs, std::string(commands::refused));
}

void RadioLine::hearCommand(double nowMs, const std::string& command) {
    if (m_goneAt) return;
    ++commandsHeard;
    if (faults.unplugged && *faults.unplugged <= 0) {
        m_goneAt = std::max(nowMs, m_lineFreeAt);
        return;
    }
    if (faults.oneAtATime && nowMs < m_busyUntil) return;
    const double ready = nowMs + pauseFor(command) + faults.slowMs;
    m_busyUntil = ready;
    if (speedsDiffer) {
        send(ready, noise());
    } else if (!isDeafNow()) {
        send(ready, refuses(command) ? std::string(commands::refused) : obey(command));
    }
    if (faults.unplugged && --*faults.unplugged == 0) {
        releaseHeld(ready);
        m_goneAt = std::max(nowMs, m_lineFreeAt);
    }
}

bool RadioLine::isDeafNow() {
    if (faults.deaf || countsDownToNow(faults.deafOnce)) return true;
    if (faults.deafAfter && (*faults.deafAfter)-- <= 0) {
        faults.deafAfter.reset();
        faults.deaf = true;
    }
    return faults.deaf;
}

bool RadioLine::refuses(const std::string& command) const {
    const auto beginsSo = [&command](const std::string& beginning) {
        return command.size() >= beginning.size() && std::equal(beginning.begin(), beginning.end(), command.begin(),
                                                                [](char a, char b) { return a == asciiUpper(b); });
    };
    return faults.refuses || std::any_of(faults.refusesItems.begin(), faults.refusesItems.end(), beginsSo);
}

int RadioLine::pauseFor(const std::string& command) {
    constexpr std::size_t letters = 2;
    constexpr int lateOne = 2;
    const auto found = pauses.find(command.substr(0, letters));
    if (found == pauses.end()) return turnaroundMs;
    return ++found->second.commands == lateOne ? found->second.onceMs : found->second.usualMs;
}

std::string RadioLine::obey(const std::string& command) {
    if (const auto fixed = fixedAnswers.find(command); fixed != fixedAnswers.end()) return fixed->second;
    if (!faults.forgetsWrite) return m_radio.obey(command);
    RadioState before = m_radio.state;
    const int setsBefore = m_radio.timesSet;
    std::string answer = m_radio.obey(command);
    if (forgets(m_radio.timesSet != setsBefore)) m_radio.state = std::move(before);
    return answer;
}

bool RadioLine::forgets(bool isSet) {
    if (!isSet || !faults.forgetsWrite) return false;
    return *faults.forgetsWrite == 0 || countsDownToNow(faults.forgetsWrite);
}

void RadioLine::send(double readyMs, std::string answer) {
    if (answer.empty()) return;
    if (faults.garbage) answer.insert(0, noise());
    if (faults.eighthBit) raiseEighthBit(answer);
    if (faults.unasked) {
        m_unaskedInFront = !m_unaskedInFront;
        answer.insert(m_unaskedInFront ? 0 : answer.size(), takeUnasked());
    }
    if (faults.glued > 1) {
        sendTogether(readyMs, answer);
    } else {
        releaseHeld(readyMs);
        putOnLine(readyMs, answer);
    }
}

std::string RadioLine::takeUnasked() {
    return tellsUnasked.empty() ? m_radio.obey("FA") : tellsUnasked[m_toldUnasked++ % tellsUnasked.size()];
}

void RadioLine::putOnLine(double readyMs, std::string_view text) {
    constexpr std::array<std::size_t, 4> pieces = {1, 3, 2, 5};
    double at = std::max(readyMs, m_lineFreeAt);
    std::size_t piece = 0;
    std::size_t inPiece = 0;
    for (const char c : text) {
        if (faults.split && inPiece == pieces.at(piece % pieces.size())) {
            at += gapInSplitAnswerMs;
            ++piece;
            inPiece = 0;
        }
        at += characterTimeMs;
        m_line.push_back({at, c});
        ++inPiece;
    }
    m_lineFreeAt = at;
}

void RadioLine::sendTogether(double readyMs, const std::string& answer) {
    if (m_held.empty()) m_heldUntil = readyMs + longestHoldMs;
    m_held += answer;
    if (++m_heldAnswers >= faults.glued) releaseHeld(readyMs);
}

void RadioLine::releaseHeld(double nowMs) {
    if (m_held.empty()) return;
    const double at = std::max(nowMs, m_lineFreeAt);
    for (const char c : m_held) m_line.push_back({at, c});
    m_lineFreeAt = at;
    m_held.clear();
    m_heldAnswers = 0;
}

std::optional<double> RadioLine::nextDue() const {
    std::optional<double> due = m_goneAt;
    const auto sooner = [&due](double at) { due = due ? std::min(*due, at) : at; };
    if (!m_line.empty()) sooner(m_line.front().at);
    if (!m_held.empty()) sooner(m_heldUntil);
    return due;
}

std::string RadioLine::takeDue(double nowMs) {
    if (!m_held.empty() && nowMs >= m_heldUntil) releaseHeld(m_heldUntil);
    std::string out;
    while (!m_line.empty() && m_line.front().at <= nowMs) {
        out += m_line.front().character;
        m_line.pop_front();
    }
    return out;
}

void RadioLine::plugIn() {
    m_goneAt.reset();
    faults.unplugged.reset();
}

void RadioLine::clear() {
    m_cutter.drop();
    m_line.clear();
    m_held.clear();
    m_heldAnswers = 0;
    m_lineFreeAt = 0;
    m_busyUntil = 0;
}

std::string RadioLine::noise() {
    constexpr int length = 3;
    std::string bytes;
    for (int i = 0; i < length; ++i) {
        m_noiseSeed = m_noiseSeed * 1103515245U + 12345U;
        const auto byte = static_cast<unsigned char>((m_noiseSeed >> 16) & 0xFFU);
        // In turn above 127 and below, and never a ";": the noise becomes part of the next answer.
        const auto shaped = i % 2 == 0 ? byte | 0x80U : byte & 0x3AU;
        bytes += static_cast<char>(shaped);
    }
    return bytes;
}

}  // namespace korvex
