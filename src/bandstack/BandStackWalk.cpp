#include "bandstack/BandStackWalk.h"

#include <algorithm>
#include <utility>

#include "bandstack/BandStackParts.h"
#include "base/CodePage.h"
#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr int modeRow = 5;        // MD0;
constexpr int frequencyRow = 10;  // FA;
constexpr int mostPresses = BandStackCells::perBand + 1;
constexpr int bands = BandStackCells::registers / BandStackCells::perBand;

int bandOf(int column) {
    return (column - 1) / BandStackCells::perBand;
}

/// "FA14195000;"
bool isFrequency(const std::string& answer) {
    constexpr std::size_t head = 2;
    return answer.size() > head + 1 && std::all_of(answer.begin() + head, answer.end() - 1, isDigit);
}

/// An answer is longer than the question, which a cable may return.
Exchange question(const std::string& item, const std::string& query) {
    return {item, query, {query.substr(0, query.size() - 1), query.size() + 1}};
}

int firstColumn(int band) {
    return band * BandStackCells::perBand + 1;
}

bool isSound(const BandStackCells& cells) {
    for (int column = 1; column < BandStackCells::columns; ++column) {
        for (int row = 1; row <= BandStackCells::lastQueried; ++row) {
            if (!cells.answersItsQuery(row, column)) return false;
        }
    }
    return true;
}

}  // namespace

BandStackWalk::BandStackWalk(CatLink& link, BandStackReader& reader, BandStackWriter& writer)
    : m_link(link), m_reader(reader), m_writer(writer) {
    m_connections += reader.ended.connect([this](const Outcome& outcome) { onWalked(outcome); });
    m_connections += writer.ended.connect([this](const Outcome& outcome) { onWalked(outcome); });
}

void BandStackWalk::read() {
    begin(false, false, [this] { m_reader.read(); });
}

void BandStackWalk::write(const BandStackCells& cells) {
    begin(true, false, [this, cells] { m_writer.write(cells); });
}

void BandStackWalk::writeBand(const BandStackCells& part) {
    begin(true, true, [this, part] { m_writer.write(part); });
}

void BandStackWalk::stop() {
    m_stage = Stage::Idle;
    m_operation.reset();
    m_reader.stop();
}

bool BandStackWalk::beginStep(const std::string& doing, void (BandStackWalk::*onEnd)(const Outcome&)) {
    m_operation = m_link.begin({ActiveOperation::BandStackRead, doing, 2, {"question", "questions"}});
    if (!m_operation) return false;
    m_operation->onEnd([this, onEnd](const Outcome& outcome) { std::invoke(onEnd, *this, outcome); });
    return true;
}

void BandStackWalk::begin(bool writes, bool isPart, std::function<void()> walk) {
    // An earlier walk that has to end for this one does so in here.
    if (!beginStep("Asking where the radio stands", &BandStackWalk::onNoted)) return ended.emit(m_link.notBegun());
    m_stage = Stage::Noting;
    m_writes = writes;
    m_isPart = isPart;
    m_mayReadAgain = !writes;
    m_walk = std::move(walk);
    m_frequency.clear();
    m_mode.clear();
    m_whyNotHome.clear();
    const auto asked = std::make_shared<int>(0);
    const auto next = [asked]() -> std::optional<Exchange> {
        if (++*asked == 1) return question("start FA", "FA;");
        if (*asked == 2) return question("start MD0", "MD0;");
        return std::nullopt;
    };
    const auto heard = [this, asked](const Reply& reply) { (*asked == 1 ? m_frequency : m_mode) = reply.answer; };
    m_operation->converse({next, heard, [this](const Outcome& outcome) { m_operation->end(outcome); }});
}

/// A radio that does not tell where it stands may be walked through all the same.
void BandStackWalk::onNoted(const Outcome& outcome) {
    using Kind = Outcome::Kind;
    if (outcome.kind == Kind::PortClosed || outcome.kind == Kind::Cancelled) {
        m_stage = Stage::Idle;
        return ended.emit(outcome);
    }
    m_stage = Stage::Walking;
    const auto walk = m_walk;  // a copy: at its end another one may begin
    walk();
}

void BandStackWalk::onWalked(const Outcome& outcome) {
    if (m_stage != Stage::Walking) return;
    m_outcome = outcome;
    m_stage = Stage::GoingHome;
    if (outcome.wentThrough()) return goHome();
    m_stage = Stage::Idle;
    m_whyNotHome = "The walk through the band stack was cut off; the radio may stand on another band than before.";
    ended.emit(outcome);
}

/// Found by what the registers hold; those that were read before anything was written are those of the radio itself.
int BandStackWalk::bandOfStart(const BandStackCells& cells) const {
    for (int column = 1; column < BandStackCells::columns; ++column) {
        if (cells.at(frequencyRow, column) == m_frequency && cells.at(modeRow, column) == m_mode) return bandOf(column);
    }
    return -1;
}

/// One press comes to the band, and one steps from its third register to its first. Where the radio stood on the first
/// band of a reading, that was stepped on from at once: its third register is where it stood.
BandStackWalk::Band BandStackWalk::wayTo(const BandStackCells& cells, int band, bool isFirst) const {
    const int first = firstColumn(band);
    const bool wasSteppedOn = !m_writes && isFirst && band == m_startBand;
    const std::string home = wasSteppedOn ? m_frequency : cells.at(frequencyRow, first);
    int alike = 0;
    for (int column = first; column < first + BandStackCells::perBand; ++column) {
        alike += cells.at(frequencyRow, column) == home ? 1 : 0;
    }
    return {band, home, alike == 1, wasSteppedOn ? 1 : 2};
}

void BandStackWalk::chooseWay() {
    const BandStackCells& cells = m_writes ? m_writer.cells() : m_reader.cells();
    m_startBand = bandOfStart(m_reader.cells());
    if (m_startBand < 0) m_startBand = bandOfStart(cells);
    m_way.clear();
    for (int band = 0; band < bands; ++band) {
        if (cells.at(1, firstColumn(band)) == "?;") continue;  // the radio has refused the band
        m_way.push_back(wayTo(cells, band, m_way.empty()));
    }
    if (m_isPart) return addReturn();
    std::stable_partition(m_way.begin(), m_way.end(), [this](const Band& band) { return band.number != m_startBand; });
}

/// The radio stands on the band that was written, on its third register; one press leads back to another band.
void BandStackWalk::addReturn() {
    if (m_startBand < 0) m_startBand = bandOfFrequency(m_frequency);
    m_isBack = false;
    for (Band& band : m_way) {
        --band.presses;
        m_isBack = m_isBack || band.number == m_startBand;
    }
    if (m_startBand >= 0 && !m_isBack) m_way.push_back({m_startBand, m_frequency, true, 1, true});
}

void BandStackWalk::goHome() {
    chooseWay();
    m_at = 0;
    m_presses = 0;
    m_checks = false;
    m_notHome.clear();
    if (!beginStep("Putting the radio back on its band", &BandStackWalk::onHome)) return onHome(m_link.notBegun());
    const auto next = [this] { return nextPress(); };
    const auto heard = [this](const Reply& reply) { take(reply); };
    m_operation->converse({next, heard, [this](const Outcome& outcome) { m_operation->end(outcome); }});
}

std::optional<Exchange> BandStackWalk::nextPress() {
    if (m_at == m_way.size()) return std::nullopt;
    const int band = m_way[m_at].number;
    if (!m_checks) ++m_presses;
    const std::string item = "home " + std::to_string(band) + "-" + std::to_string(m_presses);
    if (m_checks) return question(item + " FA", "FA;");
    Exchange press = question(item, "ID;");
    press.command = bandSelectCommand(firstColumn(band));
    return press;
}

void BandStackWalk::take(const Reply& reply) {
    if (reply.kind == Reply::Kind::None) return nextBand(false);
    if (std::exchange(m_checks, !m_checks)) check(reply.answer);
}

/// What cannot be read tells nothing: then the presses are counted.
void BandStackWalk::check(const std::string& frequency) {
    const Band& band = m_way[m_at];
    const bool counted = m_presses >= band.presses;
    if (!isFrequency(frequency) || !isFrequency(band.home)) {
        if (counted) nextBand(false);
        return;
    }
    // More presses than it should take, or fewer: the radio has not heard one on the walk, and a register came twice.
    if (frequency == band.home && (band.isAlone || counted)) return nextBand(m_presses == band.presses);
    if (m_presses == mostPresses) nextBand(false);
}

void BandStackWalk::nextBand(bool isHome) {
    if (m_way[m_at].isReturn) {
        m_isBack = isHome;
    } else if (!isHome) {
        m_notHome.push_back(m_way[m_at].number);
    }
    ++m_at;
    m_presses = 0;
    m_checks = false;
}

void BandStackWalk::onHome(const Outcome& outcome) {
    using Kind = Outcome::Kind;
    // A radio that answers in riddles would do so again.
    if (wentAstray() && outcome.isDone() && isSound(m_reader.cells()) && std::exchange(m_mayReadAgain, false)) {
        m_stage = Stage::Walking;
        const auto walk = m_walk;  // a copy: at its end another one may begin
        return walk();
    }
    m_stage = Stage::Idle;
    if (m_at < m_way.size()) {
        m_whyNotHome = "The radio could not be put back on its band.";
    } else if (wentAstray()) {
        m_whyNotHome =
            "The walk through the band stack went astray in these bands; one of their registers may have come twice:";
        for (const int band : m_notHome) m_whyNotHome += " " + zeroPadded(band, 2);
    } else if (m_isPart) {
        if (!m_isBack) m_whyNotHome = "The radio stood on " + readableAnswer(m_frequency) + "; now it does not.";
    } else if (m_startBand < 0) {
        m_whyNotHome = "The radio stood on " + utf8FromWire(m_frequency) +
                       ", which is in none of its registers (a memory?); it stands on another band now.";
    }
    ended.emit(outcome.kind == Kind::PortClosed || outcome.kind == Kind::Cancelled ? outcome : m_outcome);
}

}  // namespace korvex
