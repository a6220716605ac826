#include <algorithm>

#include "TroubleBench.h"
#include "cli/CliBench.h"
#include "fakes/WholeRestore.h"
#include "radio/StateText.h"

namespace korvex {
namespace {

using cli::CliBench;
using cli::ExitCode;

struct Job {
    std::string verb;
    std::string kind;  ///< none of "backup"
    std::string_view oneItem;
    bool restores() const { return verb == "restore"; }
};

const std::vector<Job>& jobs() {
    static const std::vector<Job> all = {
        {"save", "menu", "EX042"},      {"restore", "menu", "EX042"},    {"save", "memory", "MR001"},
        {"restore", "memory", "MW001"}, {"save", "list", "MR001"},       {"restore", "list", "MW001"},
        {"save", "bandstack", "KR"},    {"restore", "bandstack", "NB0"}, {"save", "keyer", "KM2"},
        {"restore", "keyer", "KM2"},    {"backup", "", "EX042"}};
    return all;
}

/// The lines of every file below a folder, but for what a backup has left for another one to go on with.
std::vector<std::string> linesBelow(const std::string& folder) {
    std::vector<std::string> lines;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file() || entry.path().string().find(".incomplete/") != std::string::npos) continue;
        const std::string name = entry.path().filename().string();
        for (const auto& line : linesOf(fakes::fileContent(entry.path()))) lines.push_back(name + line);
    }
    return lines;
}

/// One run of korvexctl with a radio that troubles it.
struct CliRun {
    CliBench bench;
    std::string dir = bench.folder.file("dir");
    ExitCode code = ExitCode::Done;
    std::vector<std::string> result;  ///< what it has brought about, a fact a line
    int commands = 0;

    CliRun(const Job& job, const LineTrouble& trouble, int usualCommands) {
        std::filesystem::create_directory(dir);
        std::vector<std::string> words = {"--demo", job.verb, job.kind, dir + "/file"};
        if (job.kind.empty()) words = {"--demo", job.verb, dir};
        if (job.restores()) prepareRestore(job.kind);
        const auto before = job.restores() ? radioLines() : linesBelow(dir);
        trouble.arrange(bench.ports.faults(), usualCommands, job.oneItem);
        code = bench.run(words);
        commands = bench.ports.cable.line.commandsHeard;
        for (auto& line : job.restores() ? radioLines() : linesBelow(dir)) {
            if (std::find(before.begin(), before.end(), line) == before.end()) result.push_back(std::move(line));
        }
        EXPECT_EQ(bench.ports.radio().timesKeyed, 0);
        const bool quiet = bench.err.str().empty() || bench.err.str().starts_with("korvexctl: refused or empty: ");
        EXPECT_TRUE(job.restores() || (code == ExitCode::Done) == quiet) << bench.err.str();
        EXPECT_TRUE(code == ExitCode::Done || job.restores() || saysIncomplete() || result.empty()) << "half a file";
    }

    bool saysIncomplete() const { return bench.err.str().find("not complete") != std::string::npos; }
    std::string outcome() const {
        if (saysIncomplete()) return "4, not complete";
        const bool refused = bench.out.str().find("refused") != std::string::npos;
        switch (code) {
            case ExitCode::Done: return "done";
            case ExitCode::Different: return refused ? "1, refused" : "1, different";
            case ExitCode::Answers: return refused ? "4, refused" : "4, no answer";
            case ExitCode::Port: return "3, port gone";
            default: return std::to_string(static_cast<int>(code));
        }
    }

private:
    void prepareRestore(const std::string& kind);
    std::vector<std::string> radioLines() { return linesOf(fakes::asWalked(stateText(bench.ports.radio().state))); }
};

/// By verb and kind.
const CliRun& healthyRun(const Job& job) {
    static std::map<std::string, std::unique_ptr<CliRun>> known;
    auto& run = known[job.verb + job.kind];
    if (!run) run = std::make_unique<CliRun>(job, lineTroubles().front(), 0);
    return *run;
}

void CliRun::prepareRestore(const std::string& kind) {
    const auto save = std::find_if(jobs().begin(), jobs().end(), [&](const Job& job) { return job.kind == kind; });
    fakes::writeFile(dir + "/file", fakes::fileContent(healthyRun(*save).dir + "/file"));
    RadioState& state = bench.ports.radio().state;
    const RadioState saved = state;
    state = unlikeRadio();
    for (std::size_t item : {28U, 29U, 30U}) state.menu.at(item) = saved.menu.at(item);  // left alone
    for (std::size_t memory = 1; memory < state.keyer.size(); ++memory) {
        if (saved.keyer.at(memory).empty()) state.keyer.at(memory).clear();  // nothing empties one
    }
}

/// korvexctl has nobody to ask and nobody who watches: where the windows wait or say "done", it gives up and tells.
TEST(Reliability, KorvexctlUnderEveryTroubleOfTheLine) {
    std::vector<std::vector<std::string>> rows(1, {"korvexctl"});
    for (const auto& job : jobs()) rows.front().push_back(job.kind.empty() ? job.verb : job.verb + " " + job.kind);
    for (const auto& trouble : lineTroubles()) {
        rows.push_back({std::string(trouble.name)});
        for (const auto& job : jobs()) {
            SCOPED_TRACE(job.verb + " " + job.kind + ", " + std::string(trouble.name));
            const CliRun& usual = healthyRun(job);
            const CliRun run(job, trouble, usual.commands);
            rows.back().push_back(run.outcome() + shareOf(usual.result, run.result, run.code == ExitCode::Done));
        }
    }
    expectOnThePage("| korvexctl", markdown(rows));
}

}  // namespace
}  // namespace korvex
