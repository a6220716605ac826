#include "cli/ShareJob.h"

#include <utility>

namespace korvex::cli {

ShareJob::ShareJob(Workshop workshop) : m_workshop(std::move(workshop)) {
    CatLink& link = m_workshop.program.link;
    m_connections += link.closed.connect([this] { m_ended.emit({Outcome::Kind::PortClosed, 0, 0, {}, ""}); });
    m_connections += m_workshop.program.share.told.connect([this](const std::string& text) { m_workshop.tell(text); });
}

std::optional<ExitCode> ShareJob::prepare() {
    const auto failure = openDoors();
    if (!failure) return std::nullopt;
    m_workshop.tell(failure->text);
    return ExitCode::File;
}

Failure ShareJob::openDoors() {
    const Command& command = m_workshop.command;
    PortShare& share = m_workshop.program.share;
    share.allowTransmit(command.allowTransmit);
    if (auto failure = share.openTerminal(command.link)) return failure;
    if (!command.rigctlPort) return {};
    return share.listen(*command.rigctlPort);
}

/// Where the radio is to be found is told when it has answered.
std::vector<Step> ShareJob::steps() {
    Step step{"share", [this] { m_workshop.out << m_workshop.program.share.device.get() << "\n"
                                               << std::flush; },
              &m_ended};
    step.watchesTheRadio = true;  // a radio that is switched off for the night is there again in the morning
    return {step};
}

}  // namespace korvex::cli
