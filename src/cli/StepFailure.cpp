#include "cli/StepFailure.h"

namespace korvex::cli {

namespace {

ExitCode exitCodeFor(TransferEnd end) {
    switch (end) {
        case TransferEnd::Done: return ExitCode::Done;
        case TransferEnd::NoAnswer:
        case TransferEnd::Refused:
        case TransferEnd::Cancelled: return ExitCode::Answers;
        case TransferEnd::PortClosed: return ExitCode::Port;
        case TransferEnd::FileFailed: break;
    }
    return ExitCode::File;
}

/// What the panel says of a writing; of a reading it says how far it came, which is no reason.
std::vector<std::string> panelText(const Step& step, Program& program) {
    const std::string panel = program.link.panels().Error;
    return step.writes && !panel.empty() ? std::vector{panel} : std::vector<std::string>();
}

std::vector<std::string> reasonsOf(const Step& step, TransferEnd end, Program& program) {
    if (step.transfer.why) return {step.transfer.why()};
    switch (end) {
        case TransferEnd::Refused:
        case TransferEnd::NoAnswer: return {"the radio's answers did not come in time"};
        case TransferEnd::Cancelled:
        case TransferEnd::FileFailed: return panelText(step, program);
        case TransferEnd::Done:
        case TransferEnd::PortClosed: break;
    }
    return {};
}

}  // namespace

StepFailure failureOf(const Step& step, TransferEnd end, Program& program) {
    return {exitCodeFor(end), reasonsOf(step, end, program)};
}

}  // namespace korvex::cli
