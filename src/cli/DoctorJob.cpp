#include "cli/DoctorJob.h"

#include <algorithm>

#include "doctor/Advice.h"
#include "report/ReportText.h"

namespace korvex::cli {

namespace {

/// Without those of bands that the radio has refused.
int registersIn(const FileKind& bandStack, const std::string& file) {
    const auto items = bandStack.items(file);
    if (!items) return 0;
    return static_cast<int>(
        std::count_if(items->begin(), items->end(), [](const DataItem& item) { return item.name.ends_with(" BS"); }));
}

}  // namespace

std::vector<Step> DoctorJob::steps() {
    Step step{"check", [this] { check().begin(m_workshop.command.withSettings); }, &check().ended};
    step.watchesTheRadio = true;
    step.why = [this] { return check().report().advice; };
    std::vector<Step> steps{step};
    if (m_workshop.command.bandStack) steps.push_back(walkStep());
    return steps;
}

Step DoctorJob::walkStep() {
    const FileKind& kind = *fileKind("bandstack");
    KindTransfers& transfers = m_workshop.program.transfers;
    Step step = readStep(m_workshop, kind, [this, &kind, &transfers](const std::string& text) {
        check().noteWalk(registersIn(kind, text), transfers.whyNotHome());
    });
    step.objection = {};
    step.start = [this, start = step.start] {
        m_workshop.note("walking through the band stack: the radio changes bands, and is put back");
        start();
    };
    return step;
}

ExitCode DoctorJob::conclude() {
    m_workshop.out << reportText(check().report());
    m_workshop.out.flush();
    for (const auto& line : check().report().advice) m_workshop.note(line);
    return isAsBelieved(check().report(), check().how()) ? ExitCode::Done : ExitCode::Different;
}

/// What was seen until then is a report, too.
void DoctorJob::abandon() {
    if (!check().report().forms.empty()) m_workshop.out << reportText(check().report());
}

}  // namespace korvex::cli
