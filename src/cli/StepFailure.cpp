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

/// What windows say elsewhere than in a box. The panel says why a file was not loaded; of a reading it says how far it
/// came, which is no reason.
std::vector<std::string> fileTrouble(const Step& step, Program& program) {
    std::vector<std::string> reasons;
    const std::string panel = program.link.panels().Error;
    if (step.writes && !panel.empty()) reasons.push_back(panel);
    for (const std::string& why : {program.keyerWindow.hint.get(), program.bandStackWindow.dateipath.get()}) {
        if (why.starts_with("Not saved: ") || why.starts_with("Not loaded: ")) reasons.push_back(why);
    }
    return reasons;
}

std::vector<std::string> reasonsOf(const Step& step, TransferEnd end, Program& program, const GivenFile& givenFile) {
    if (step.transfer.why) return {step.transfer.why()};
    switch (end) {
        case TransferEnd::Refused:
        case TransferEnd::NoAnswer: return {"the radio's answers did not come in time"};
        case TransferEnd::Cancelled: return {givenFile.objected + "; nothing was written"};
        case TransferEnd::FileFailed: return fileTrouble(step, program);
        case TransferEnd::Done:
        case TransferEnd::PortClosed: break;
    }
    return {};
}

}  // namespace

StepFailure failureOf(const Step& step, TransferEnd end, Program& program, const GivenFile& givenFile) {
    return {exitCodeFor(end), reasonsOf(step, end, program, givenFile)};
}

}  // namespace korvex::cli
