#include "backup/Restore.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "cat/RadioModel.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

const ItemWords words = {"item", "items", true};

/// To the end, refusals among the answers or not.
bool wasRead(const Outcome& outcome) {
    return outcome.isDone() || outcome.kind == Outcome::Kind::Refused;
}

}  // namespace

Restore::Restore(CatLink& link, Backup& backup, KindTransfers& transfers, Clock& clock)
    : m_link(link), m_backup(backup), m_transfers(transfers), m_patience(link, clock, [this] { onSilence(); }) {}

void Restore::clear() {
    m_parts.clear();
    m_report.clear();
    m_why.clear();
    m_safetyCopy.clear();
}

Failure Restore::take(const FileKind& kind, DataItems items) {
    const std::string why = kind.objection(items);
    if (!why.empty()) return RuntimeError{errors::TypeMismatch, why};
    m_parts.emplace_back(kind, std::move(items));
    std::stable_sort(m_parts.begin(), m_parts.end(), [](const RestorePart& one, const RestorePart& other) {
        return one.kind->order < other.kind->order;
    });
    return {};
}

Failure Restore::prepare(const RestoreChoices& choices) {
    m_choices = choices;
    return choices.safetyCopy ? m_backup.makeFolder(*choices.safetyCopy) : Failure();
}

void Restore::begin() {
    m_stage = Stage::Reading;
    if (m_choices.writesAll && !m_choices.safetyCopy) return plan();
    std::vector<const FileKind*> kinds;
    for (const auto& one : m_parts) kinds.push_back(one.kind);
    m_stepEnd = m_backup.ended.connect([this](const Outcome& outcome) { onPresentRead(outcome); });
    m_backup.read(kinds);
}

void Restore::onPresentRead(const Outcome& outcome) {
    m_stepEnd.end();
    if (!outcome.isDone()) {
        m_why = {m_backup.why(), "Nothing was written."};
        return finish(outcome);
    }
    if (m_choices.safetyCopy) m_safetyCopy = m_backup.path();
    for (auto& one : m_parts) {
        if (!one.kind->leftOut.empty()) one.present = DataItems();  // none are told
        for (const auto& read : m_backup.summary().parts) {
            if (read.kind == one.kind) one.present = read.items;
        }
    }
    plan();
}

void Restore::plan() {
    for (auto& one : m_parts) one.heed(m_link.known());
    for (auto& one : m_parts) one.plan(m_choices.writesAll, m_choices.withLineItems);
    m_stage = Stage::Planned;
    if (const std::string why = whyNotThisRadio(); !why.empty() && !m_choices.force) {
        m_why = {why, "Nothing was written."};
        return finish({Outcome::Kind::Refused});
    }
    planned.emit();
}

std::string Restore::whyNotThisRadio() const {
    const std::string& model = m_backup.summary().radio;
    const bool wasAsked = !m_choices.writesAll || m_choices.safetyCopy;
    if (wasAsked && !model.empty() && !isFt2000(model)) return "The radio says " + model + ", and that is no FT-2000.";
    for (const auto& one : m_parts) {
        if (one.hasOtherNumbers()) {
            return "The menu items of the file have the numbers of " +
                   std::string(m_link.known().hasEarlyMenuNumbers ? "later" : "early") +
                   " firmware, and would set other items in this radio.";
        }
        const auto names = one.otherWidths();
        if (names.empty()) continue;
        return "The radio tells " + std::string(one.kind->name) + " " + names.front() +
               " with another number of characters than the file (" + std::to_string(names.size()) + " such items).";
    }
    return {};
}

std::vector<std::string> Restore::planLines() const {
    std::vector<std::string> lines;
    for (const auto& one : m_parts) lines.push_back(std::string(one.kind->name) + ": " + one.planLine());
    return lines;
}

std::vector<std::string> Restore::planDetails(const ItemTitles& titles) const {
    std::vector<std::string> lines;
    for (const auto& one : m_parts) {
        for (auto& line : one.planDetails(titles)) lines.push_back(std::move(line));
    }
    return lines;
}

bool Restore::writesAnything() const {
    return std::any_of(m_parts.begin(), m_parts.end(),
                       [](const RestorePart& one) { return !one.toWrite.empty() || !one.lineItemsToWrite.empty(); });
}

DataItems Restore::commands() const {
    DataItems items;
    for (const auto& one : m_parts) items.insert(items.end(), one.wanted.begin(), one.wanted.end());
    for (const auto& one : m_parts) {
        if (m_choices.withLineItems) items.insert(items.end(), one.lineItems.begin(), one.lineItems.end());
    }
    return items;
}

void Restore::go() {
    if (m_stage != Stage::Planned) return;
    m_stage = Stage::Writing;
    m_part = 0;
    markSafetyCopy();
    next();
}

void Restore::markSafetyCopy() {
    if (m_safetyCopy.empty()) return;
    if (writesAnything()) {
        // Without it the next restore would not know of this one; that is no reason not to begin.
        static_cast<void>(textfile::write(m_safetyCopy + "/" + unfinishedRestoreName,
                                          "A restore was begun behind this copy and has not come to its end.\n"));
    } else {
        dropSafetyCopy();
    }
}

/// It is a copy of what stays.
void Restore::dropSafetyCopy() {
    std::error_code ignored;
    if (!m_safetyCopy.empty()) std::filesystem::remove_all(std::exchange(m_safetyCopy, {}), ignored);
}

void Restore::stop() {
    m_backup.stop();
    if (m_stage != Stage::Planned) return;
    dropSafetyCopy();
    m_why = {"Nothing was written."};
    finish(Outcome::Kind::Cancelled);
}

/// The next piece of work from this part of this stage on.
void Restore::next() {
    while (m_part < m_parts.size() && !hasWork()) ++m_part;
    if (m_part < m_parts.size()) return work();
    if (m_stage == Stage::LineItems) return conclude();
    m_stage = m_stage == Stage::Writing ? Stage::ReadingBack : Stage::LineItems;
    m_part = 0;
    next();
}

bool Restore::hasWork() const {
    if (m_stage == Stage::LineItems) return !part().lineItemsToWrite.empty();
    return !part().toWrite.empty() && !(m_stage == Stage::ReadingBack && part().isConfirmed);
}

void Restore::work() {
    const FileKind& kind = *part().kind;
    const auto onEnd = [this](const Outcome& outcome) { onStepEnded(outcome); };
    m_link.workFor("Restore of the radio");
    if (m_stage == Stage::ReadingBack) {
        m_patience.begin();
        m_stepEnd = m_transfers.reading(kind).ended->connect(onEnd);
        return m_transfers.reading(kind).start();
    }
    m_patience.begin(Patience::Of::Writing);
    m_stepEnd = m_transfers.writing(kind).ended->connect(onEnd);
    m_transfers.writing(kind).start(m_stage == Stage::LineItems ? part().lineItemsToWrite : part().toWrite);
}

/// The next piece gets the line before anybody else can.
void Restore::onStepEnded(const Outcome& outcome) {
    m_stepEnd.end();
    m_patience.end();
    const bool reads = m_stage == Stage::ReadingBack;
    if (reads ? !wasRead(outcome) || !takeReadBack() : !outcome.wentThrough()) return breakOff(outcome);
    if (!reads) part().noteWritten(outcome, m_link.pace == Pace::Answered && m_transfers.whyNotHome().empty());
    ++m_part;
    next();
}

bool Restore::takeReadBack() {
    auto items = part().kind->items(m_transfers.file(*part().kind).content);
    if (items) part().present = std::move(*items);
    return static_cast<bool>(items);
}

void Restore::onSilence() {
    m_link.breakOff(Outcome::Kind::NoAnswer);
}

void Restore::conclude() {
    for (const auto& one : m_parts) one.report(m_report);
    std::error_code ignored;
    if (!m_safetyCopy.empty()) std::filesystem::remove(m_safetyCopy + "/" + unfinishedRestoreName, ignored);
    finish({});
}

void Restore::breakOff(const Outcome& outcome) {
    m_why = whatTheRadioHolds();
    m_why.insert(m_why.begin(), std::string(part().kind->name) + ": " + inWords(outcome, words));
    Outcome end = outcome;
    if (end.isDone()) end.kind = Outcome::Kind::NoAnswer;
    finish(end);
}

std::vector<std::string> Restore::whatTheRadioHolds() const {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        const std::string name = std::string(m_parts[i].kind->name) + ": ";
        const bool allWritten = m_stage != Stage::Writing || i < m_part;
        if (m_parts[i].toWrite.empty()) {
            lines.push_back(name + "nothing had to be written");
        } else if (allWritten) {
            lines.push_back(name + "written, and not read back");
        } else if (i > m_part) {
            lines.push_back(name + "as it was");
        }
    }
    lines.emplace_back("The same restore begun again writes what is missing.");
    if (!m_safetyCopy.empty()) lines.push_back("What the radio had before is in " + m_safetyCopy);
    return lines;
}

void Restore::finish(const Outcome& outcome) {
    m_stage = Stage::Idle;
    m_patience.end();
    m_stepEnd.end();
    m_link.workFor({});
    ended.emit(outcome);
}

std::vector<std::string> Restore::remarks() const {
    const bool walked =
        std::any_of(m_parts.begin(), m_parts.end(), [](const RestorePart& one) { return one.kind->isCircle; });
    if (!walked || m_transfers.whyNotHome().empty()) return {};
    return {m_transfers.whyNotHome()};
}

bool Restore::isAsTheFilesSay() const {
    return std::all_of(m_report.begin(), m_report.end(), [](const RestoredItem& item) { return item.isAsTheFileSays; });
}

}  // namespace korvex
