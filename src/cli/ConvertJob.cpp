#include "cli/ConvertJob.h"

#include "convert/ChannelWords.h"
#include "convert/Chirp.h"
#include "convert/KindSheets.h"

namespace korvex::cli {

namespace {

constexpr std::string_view csvEnding = ".csv";

/// By its ending; empty for a table, and for a name that tells nothing.
std::string kindOfFile(const std::string& name) {
    for (const auto& kind : fileKinds()) {
        if (name.ends_with("." + std::string(kind.ending))) return std::string(kind.name);
    }
    return {};
}

bool isOfChannels(const std::string& kind) {
    return kind == "memory" || kind == "list";
}

RuntimeError unclear() {
    return {errors::InvalidPropertyValue,
            "one of the two is a table (.csv); --kind says what the other is where its ending does not"};
}

}  // namespace

std::optional<ExitCode> ConvertJob::prepare() {
    const Command& command = m_workshop.command;
    const auto content = m_workshop.files.read(command.file);
    if (!content) {
        m_workshop.tell(content.error().text);
        return ExitCode::File;
    }
    const auto text = converted(*content);
    if (!text) {
        m_workshop.tell(command.file + ": " + text.error().text);
        return text.error().number == errors::InvalidPropertyValue ? ExitCode::Usage : ExitCode::File;
    }
    if (const auto failure = m_workshop.files.write(command.otherFile, *text)) {
        m_workshop.tell(failure->text);
        return ExitCode::File;
    }
    for (const auto& loss : m_losses) m_workshop.tell(loss);
    return m_losses.empty() ? ExitCode::Done : ExitCode::Different;
}

Result<std::string> ConvertJob::converted(const std::string& content) {
    const Command& command = m_workshop.command;
    const bool isTable = command.file.ends_with(csvEnding);
    const bool toTable = command.otherFile.ends_with(csvEnding);
    const std::string from = isTable || kindOfFile(command.file).empty() ? command.kind : kindOfFile(command.file);
    const std::string to =
        toTable || kindOfFile(command.otherFile).empty() ? command.kind : kindOfFile(command.otherFile);
    if (isTable == toTable && isOfChannels(from) && isOfChannels(to) && !isTable) return toOtherKind(from, to, content);
    if (toTable && !isTable && fileKind(from) != nullptr) return toCsv(from, content);
    if (isTable && !toTable && fileKind(to) != nullptr) return fromCsv(to, content);
    return unclear();
}

Result<std::string> ConvertJob::fromCsv(const std::string& kind, const std::string& csv) {
    if (!isChirp(csv)) return fileOf(kind, csv);
    if (!isOfChannels(kind)) return RuntimeError{errors::TypeMismatch, "CHIRP's tables hold memory channels"};
    auto import = channelsFromChirp(csv);
    if (!import) return import.error();
    m_losses = std::move(import->losses);
    if (import->channels.empty()) return RuntimeError{errors::TypeMismatch, "no channel in it is one for this radio"};
    return channelFile(kind, import->channels);
}

Result<std::string> ConvertJob::toCsv(const std::string& kind, const std::string& content) {
    if (m_workshop.command.chirp) return toChirp(kind, content);
    const auto titles = [this](const std::string& item) { return m_workshop.titles("menu", item); };
    const auto table = sheetOf(kind, content, m_workshop.titles ? MenuTitles(titles) : nullptr);
    if (!table) return table.error();
    return csvText(*table);
}

Result<std::string> ConvertJob::toChirp(const std::string& kind, const std::string& content) {
    if (!isOfChannels(kind)) return RuntimeError{errors::InvalidPropertyValue, "--chirp is for memory channels"};
    const auto channels = channelsIn(kind, content);
    if (!channels) return channels.error();
    ChirpExport result = chirpFrom(*channels);
    m_losses = std::move(result.losses);
    return std::move(result.csv);
}

Result<std::string> ConvertJob::toOtherKind(const std::string& from, const std::string& to,
                                            const std::string& content) {
    const auto channels = channelsIn(from, content);
    if (!channels) return channels.error();
    std::map<int, MemoryRecord> byNumber;
    for (const auto& record : *channels) {
        const std::string& channel = record[MemoryField::Channel];
        byNumber[channelNamed(channel)] = record;
        if (to == "memory" && !record[MemoryField::Remark].empty()) {
            m_losses.push_back("channel " + channel + ": the remark is left out");
        }
    }
    return channelFile(to, byNumber);
}

}  // namespace korvex::cli
