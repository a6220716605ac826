#include "cli/CompareJob.h"

#include "cli/JsonReport.h"

namespace korvex::cli {

/// By --kind, else by the ending of the file.
const FileKind* CompareJob::chosenKind() const {
    const std::string& named = m_workshop.command.kind;
    if (!named.empty()) return fileKind(named);
    for (const auto& kind : fileKinds()) {
        const std::string ending = "." + std::string(kind.ending);
        if (m_left.file.ends_with(ending) || m_right.file.ends_with(ending)) return &kind;
    }
    return nullptr;
}

bool CompareJob::areComparable() const {
    return m_left.file != m_right.file || (!m_left.radio && m_left.file != "-");
}

bool CompareJob::takeFile(Side& side) {
    if (side.radio) return true;
    auto items = itemsOfFile(m_workshop, *m_kind, side.file);
    if (items) side.items = std::move(*items);
    return items.has_value();
}

std::optional<ExitCode> CompareJob::prepare() {
    m_left = makeSide(m_workshop.command.file);
    m_right = makeSide(m_workshop.command.otherFile);
    m_kind = chosenKind();
    if (m_kind == nullptr) {
        m_workshop.tell("no ending tells what kind of file it is; --kind says it: " + kindNames());
        return ExitCode::Usage;
    }
    if (!areComparable()) {
        m_workshop.tell("both sides are the same; name two files, or a file and \"radio\"");
        return ExitCode::Usage;
    }
    if (!takeFile(m_left) || !takeFile(m_right)) return ExitCode::File;
    if (withRadio()) return std::nullopt;
    return conclude();
}

std::vector<Step> CompareJob::steps() {
    return {readStep(m_workshop, *m_kind, [this](std::string text) { m_read = std::move(text); })};
}

ExitCode CompareJob::conclude() {
    if (withRadio()) {
        auto items = m_kind->items(m_read);
        if (!items) {
            m_workshop.tell("what the radio told: " + items.error().text);
            return ExitCode::Answers;
        }
        (m_left.radio ? m_left : m_right).items = std::move(*items);
    }
    const DataItems right = m_kind->isCircle ? turnedLike(m_left.items, m_right.items) : m_right.items;
    const auto list = differences(m_left.items, right, withRadio() ? Remarks::Ignore : Remarks::Count);
    if (m_workshop.command.json) {
        printJson(m_workshop.out, {m_kind->name, m_left.file, m_right.file, list}, m_workshop.titles);
    } else if (!m_workshop.command.quiet) {
        print(m_workshop.out, list, std::string(m_kind->name), m_workshop.titles);
    }
    return list.empty() ? ExitCode::Done : ExitCode::Different;
}

}  // namespace korvex::cli
