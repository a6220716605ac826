#include "cli/SaveJob.h"

#include <filesystem>

#include "cli/JsonReport.h"

namespace korvex::cli {

std::optional<ExitCode> SaveJob::prepare() {
    m_kind = kindNamed(m_workshop, m_workshop.command.kind);
    if (m_kind == nullptr) return ExitCode::Usage;
    // A target that cannot be written is told before the radio is read for minutes.
    const auto failure = Files::whyNotWritable(m_workshop.command.file);
    if (!failure) return std::nullopt;
    m_workshop.tell(failure->text);
    return ExitCode::File;
}

std::vector<Step> SaveJob::steps() {
    Step step = readStep(m_workshop, *m_kind, [this](std::string text) { m_read = std::move(text); });
    if (reading().gap) step.objection = reading().gap;  // nobody can be told of it in the file
    return {step};
}

ExitCode SaveJob::conclude() {
    const std::string& file = m_workshop.command.file;
    if (wouldEmptyTarget()) {
        m_workshop.tell("the radio told nothing, and " + file + " holds something; nothing was written");
        return ExitCode::Answers;
    }
    if (const auto failure = m_workshop.files.write(file, m_read)) {
        m_workshop.tell(failure->text);
        return ExitCode::File;
    }
    const auto remarks = reading().remarks ? reading().remarks() : std::vector<std::string>();
    for (const auto& remark : remarks) m_workshop.tell(remark);
    if (m_workshop.command.json) {
        const auto items = m_kind->items(m_read);
        printJson(m_workshop.out, {m_kind->name, file, items ? *items : DataItems(), remarks}, m_workshop.titles);
    }
    return ExitCode::Done;
}

/// A radio that is busy refuses to tell a channel as it does when the channel is empty.
bool SaveJob::wouldEmptyTarget() const {
    const std::string& file = m_workshop.command.file;
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored)) return false;
    const auto holdsItems = [this](const Result<std::string>& text) {
        const auto items = text ? m_kind->items(*text) : Result<DataItems>(text.error());
        return items && holdsAnything(*m_kind, *items);
    };
    return !holdsItems(m_read) && holdsItems(m_workshop.files.read(file));
}

}  // namespace korvex::cli
