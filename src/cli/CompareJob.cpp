#include "cli/CompareJob.h"

namespace korvex::cli {

CompareJob::Side CompareJob::makeSide(const std::string& word) const {
    const bool radio = word == "radio";
    return {radio ? m_scratch.file("radio") : word, radio, {}};
}

/// By --kind, else by the ending of the file.
const FileKind* CompareJob::chosenKind() const {
    const std::string& named = m_workshop.command.kind;
    if (!named.empty()) return m_workshop.kind(named);
    const std::string& file = m_left.radio ? m_right.file : m_left.file;
    for (const auto& kind : m_workshop.kinds) {
        if (file.ends_with("." + endingOf(kind.name))) return &kind;
    }
    return nullptr;
}

bool CompareJob::takeSides(bool ofRadio) {
    for (Side* side : {&m_left, &m_right}) {
        if (side->radio != ofRadio) continue;
        auto items = readItems(m_workshop, m_kind->name, side->file);
        if (!items) return false;
        side->items = std::move(*items);
    }
    return true;
}

std::optional<ExitCode> CompareJob::prepare() {
    m_left = makeSide(m_workshop.command.file);
    m_right = makeSide(m_workshop.command.otherFile);
    m_kind = chosenKind();
    if (m_kind == nullptr || (m_left.radio && m_right.radio)) {
        m_workshop.tell("what kind of file is it? --kind says it where the ending does not");
        return ExitCode::Usage;
    }
    if (!takeSides(false)) return ExitCode::File;
    if (m_left.radio || m_right.radio) return std::nullopt;
    return conclude();
}

std::vector<Step> CompareJob::steps() {
    return {readStep(*m_kind, m_scratch.file("radio"))};
}

ExitCode CompareJob::conclude() {
    if (!takeSides(true)) return ExitCode::File;
    const bool withRadio = m_left.radio || m_right.radio;
    const DataItems right = m_kind->name == "bandstack" ? turnedLike(m_left.items, m_right.items) : m_right.items;
    const auto list = differences(m_left.items, right, withRadio ? Remarks::Ignore : Remarks::Count);
    print(m_workshop.out, list, m_kind->name, m_workshop.titles);
    return list.empty() ? ExitCode::Done : ExitCode::Different;
}

}  // namespace korvex::cli
