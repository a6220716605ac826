#include "cli/BackupJob.h"

#include <array>

#include "base/CodePage.h"
#include "platform/TextFile.h"

namespace korvex::cli {

namespace {

/// The list last: its reading closes the port.
constexpr std::array<const char*, 5> order = {"menu", "memory", "bandstack", "keyer", "list"};

/// "ID0251;" out of whatever came.
std::string modelIn(const std::string& received) {
    const auto begin = received.find("ID");
    const auto end = received.find(';', begin == std::string::npos ? 0 : begin);
    if (begin == std::string::npos || end == std::string::npos) return {};
    return utf8FromWire(received.substr(begin, end - begin + 1));
}

std::string portText(const MSComm& port) {
    return std::to_string(port.CommPort()) + ", " + port.Settings() + ", handshaking " +
           std::to_string(port.Handshaking());
}

}  // namespace

BackupJob::BackupJob(Workshop workshop)
    : m_workshop(std::move(workshop)), m_sender(m_workshop.program.link, m_workshop.program.machine().clock) {}

std::optional<ExitCode> BackupJob::prepare() {
    m_summary.timeOfDay = m_workshop.timeOfDay();
    if (const auto failure = m_folder.make(m_workshop.command.file, m_summary.timeOfDay)) return failed(failure->text);
    return std::nullopt;
}

std::vector<Step> BackupJob::steps() {
    std::vector<Step> steps{askForModel()};
    for (const char* name : order) {
        const FileKind& kind = *m_workshop.kind(name);
        steps.push_back(readStep(kind, m_folder.file(backupFileName(kind))));
    }
    return steps;
}

Step BackupJob::askForModel() {
    Transfer transfer;
    transfer.start = [this] {
        m_sender.send({"ID;"});
        return std::nullopt;
    };
    transfer.ended = &m_sender.ended;
    const auto after = [this](const WriteRecord&) {
        m_summary.radio = modelIn(m_workshop.program.link.received().text());
        m_summary.port = portText(m_workshop.program.link.port());
    };
    return {"model", transfer, {}, false, true, after};
}

bool BackupJob::takeParts() {
    for (const char* name : order) {
        const std::string file = backupFileName(*m_workshop.kind(name));
        auto items = readItems(m_workshop, name, m_folder.file(file));
        if (!items) return false;
        m_summary.parts.push_back({name, file, std::move(*items)});
    }
    return true;
}

Failure BackupJob::writeTexts() const {
    const auto text = equalizerText(m_summary.parts.front().items);
    if (auto failure = textfile::write(m_folder.file("equalizer.txt"), text)) return failure;
    return textfile::write(m_folder.file("summary.txt"), summaryText(m_summary));
}

ExitCode BackupJob::conclude() {
    if (!takeParts()) return failed("the radio's answers make no backup");
    if (const auto failure = writeTexts()) return failed(failure->text);
    if (const auto failure = m_folder.keep()) return failed(failure->text);
    m_workshop.out << m_folder.path() << "\n";
    return ExitCode::Done;
}

void BackupJob::abandon() {
    m_folder.drop();
    m_workshop.tell("no backup was made");
}

ExitCode BackupJob::failed(const std::string& why) {
    m_workshop.tell(why);
    abandon();
    return ExitCode::File;
}

}  // namespace korvex::cli
