#include "cli/Session.h"

#include <algorithm>
#include <sstream>
#include <utility>

#include "base/CodePage.h"
#include "platform/Settings.h"

namespace korvex::cli {

namespace {

constexpr int pollMs = 20;
constexpr int testMs = 1200;   // the communication test gives its verdict within 1000
constexpr int listenMs = 600;  // a slow radio answers within half a second

ExitCode exitCodeFor(const Outcome& outcome) {
    switch (outcome.kind) {
        case Outcome::Kind::Done: return ExitCode::Done;
        case Outcome::Kind::PortClosed: return ExitCode::Port;
        case Outcome::Kind::FileFailed: return ExitCode::File;
        case Outcome::Kind::NoAnswer:
        case Outcome::Kind::Refused:
        case Outcome::Kind::Cancelled: break;
    }
    return ExitCode::Answers;
}

}  // namespace

Session::Session(Program& program, Command command, Surroundings surroundings)
    : m_program(program),
      m_command(std::move(command)),
      m_surroundings(std::move(surroundings)),
      m_poll(program.machine().clock.makeTimer()),
      m_patience(program.link, program.machine().clock, [this] { onSilence(); }) {
    m_poll->setInterval(pollMs);
    m_connections += m_poll->tick.connect([this] { onPoll(); });
    m_connections += program.link.closed.connect([this] {
        if (m_stage == Stage::Testing || m_stage == Stage::Listening) finish(ExitCode::Port);
    });
    m_connections += program.link.echoFound.connect([this] {
        tell("this cable or adapter returns what is sent; that is passed over, and no answer of the radio");
    });
}

void Session::tell(const std::string& text) {
    m_surroundings.err << "korvexctl: " << (m_steps.size() > 1 ? step().name + ": " : "") << text << "\n";
}

void Session::start() {
    if (m_command.verb != Command::Verb::Send) {
        m_job = makeJob({m_program, m_command, m_surroundings.out, m_surroundings.err, m_surroundings.files,
                         m_surroundings.titles});
        if (const auto code = m_job->prepare()) {
            finish(*code);
            return;
        }
        m_jobGoesOn = true;
        m_steps = m_job->steps();
    }
    configurePort();
    if (m_stage != Stage::Finished) openPort();
}

void Session::configurePort() {
    m_program.terminal.Form_Load();
    m_program.link.pace = m_command.pace;
    MSComm& port = m_program.MSComm1;
    Failure failure;
    if (m_command.settings) failure = port.setSettings(*m_command.settings);
    if (!failure && m_command.handshaking) failure = port.setHandshaking(*m_command.handshaking);
    // A device or a demo that was asked for stands on number 1.
    if (!failure && (m_command.device || m_command.demo)) failure = port.setCommPort(1);
    if (!failure) return;
    tell(failure->text);
    finish(ExitCode::Usage);
}

bool Session::isPortThere() {
    const auto there = m_program.machine().ports.list();
    const int number = m_program.MSComm1.CommPort();
    return std::any_of(there.begin(), there.end(), [number](const auto& port) { return port.number == number; });
}

/// Neither named now nor settled on before, and no device has taken the number by itself.
bool Session::hasNoPort() {
    const auto key = keys::device(m_program.MSComm1.CommPort());
    return !m_command.device && readSetting(m_program.machine().settings, key).empty() && !isPortThere();
}

void Session::openPort() {
    m_stage = Stage::Idle;
    if (hasNoPort()) {
        if (mayLook()) return search();
        tell("no port is set; korvexctl ports lists them, -r names one");
        finish(ExitCode::Port);
        return;
    }
    m_program.link.togglePort();
    if (!m_program.link.PortOpen()) {
        if (!isPortThere()) tell("korvexctl ports lists those that are there");
        finish(ExitCode::Port);
        return;
    }
    m_stage = Stage::Testing;
    m_deadline = now() + testMs;
    m_poll->setEnabled(true);
}

void Session::onPoll() {
    const bool late = now() >= m_deadline;
    if (m_stage == Stage::Searching) {
        onSearchPoll();
    } else if (m_stage == Stage::Testing) {
        onTestPoll(late);
    } else if (m_stage == Stage::Listening && late) {
        onListened();
    }
}

void Session::onSilence() {
    tell("the radio has stopped answering");
    finish(ExitCode::Answers);
}

void Session::onTestPoll(bool late) {
    const std::string text = received();
    const bool answered = CommTest::isAnswered(text) && text.find(';', text.rfind("FA")) != std::string::npos;
    if (answered && !m_program.link.testing()) {
        beginNext();  // with the verdict behind us: nothing but answers comes from now on
    } else if (late && mayLook()) {
        search();
    } else if (late) {
        tell("the radio does not answer; please check cable, speed and the radio's menus 28 to 30");
        finish(ExitCode::Answers);
    }
}

bool Session::mayLook() const {
    return m_job && m_job->looksForRadio() && !m_search;
}

/// On the port that was named; with none, on all that no other program has.
void Session::search() {
    m_stage = Stage::Searching;
    m_program.link.closePort();
    const bool named = m_command.device || m_command.demo;
    const MSComm& port = m_program.MSComm1;
    tell(hasNoPort() ? "no port is set; looking for the radio at all that are free"
                     : "the radio does not answer at " + std::to_string(port.lineSettings().speed) +
                           " bit/s; looking for it at other speeds" + (named ? "" : " and ports"));
    m_search = std::make_unique<RadioSearch>(m_program.machine().ports, m_program.machine().clock);
    m_connections += m_search->found.connect([this](const RadioSearch::Found& found) { onFound(found); });
    m_search->start(port.CommPort(), port.lineSettings().speed,
                    named ? RadioSearch::Where::FirstPortOnly : RadioSearch::Where::AllPorts);
    m_poll->setEnabled(true);
}

void Session::onFound(const RadioSearch::Found& found) {
    MSComm& port = m_program.MSComm1;
    // What was found is a port with a speed that ports have; the search asks without handshaking.
    static_cast<void>(port.setCommPort(found.port));
    static_cast<void>(port.setSettings(found.line.text()));
    static_cast<void>(port.setHandshaking(0));
    tell("found on " + found.device + " at " + found.line.text() + ": set port and speed so in Korvex");
    openPort();
}

void Session::onSearchPoll() {
    if (m_search->running) return;
    std::istringstream lines(m_search->status.get());
    for (std::string line; std::getline(lines, line);) tell(line);
    finish(ExitCode::Answers);
}

void Session::beginNext() {
    m_poll->setEnabled(false);
    if (!m_program.link.PortOpen()) {
        openPort();
    } else if (m_job) {
        beginStep();
    } else {
        beginSend();
    }
}

void Session::beginStep() {
    m_stage = Stage::Working;
    m_transferEnd = step().ended->connect([this](const Outcome& outcome) { onEnded(outcome); });
    m_program.link.panels().Error = "";
    if (!step().watchesTheRadio) m_patience.begin();
    step().start();
}

void Session::beginSend() {
    m_sending = m_program.link.begin({ActiveOperation::MenuReadToFile, "Sending"});
    m_program.link.clearTraffic();
    m_sending->onAnswer([this](std::string_view answer) {
        if (answer.ends_with("?;")) m_outcome.kind = Outcome::Kind::Refused;
        return Rest::GoOn;
    });
    m_sending->send(m_command.text);
    listen(listenMs);
}

void Session::onEnded(const Outcome& outcome) {
    if (m_stage != Stage::Working) return;
    // What is missing of a reading, its objection weighs.
    const bool told = outcome.isDone() || (outcome.kind == Outcome::Kind::Refused && step().objection);
    const std::string objection = told && step().objection ? step().objection() : "";
    if (!told) {
        onFailed(outcome);
    } else if (!objection.empty()) {
        tell(objection + "; nothing was written");
        finish(ExitCode::Answers);
    } else {
        listen(0);  // not from inside the transfer's own end: the next step may be of the same kind
    }
}

void Session::onFailed(const Outcome& outcome) {
    if (step().why) {
        for (const auto& line : step().why()) tell(line);
    } else if (outcome.kind != Outcome::Kind::PortClosed) {
        tell("the radio's answers did not come in time");
    }
    finish(exitCodeFor(outcome));
}

void Session::listen(int ms) {
    m_stage = Stage::Listening;
    m_patience.end();
    m_deadline = now() + ms;
    m_poll->setEnabled(true);
}

void Session::onListened() {
    if (m_job) {
        stepDone();
        return;
    }
    std::string text = utf8FromWire(received());
    std::erase(text, '\r');
    m_surroundings.out << text << std::flush;
    finish(exitCodeFor(m_outcome));
}

void Session::stepDone() {
    if (step().after) step().after();
    if (m_stepIndex + 1 == m_steps.size()) {
        conclude();
    } else {
        ++m_stepIndex;
        beginNext();
    }
}

void Session::conclude() {
    m_jobGoesOn = false;
    finish(m_job->conclude());
}

void Session::interrupt() {
    if (m_stage == Stage::Finished) return;
    finish(m_job && m_job->goesOnUntilInterrupted() ? ExitCode::Done : ExitCode::Interrupted);
}

void Session::finish(ExitCode code) {
    if (m_stage == Stage::Finished) return;
    m_stage = Stage::Finished;
    m_poll->setEnabled(false);
    m_patience.end();
    if (m_search) m_search->cancel();
    if (std::exchange(m_jobGoesOn, false)) m_job->abandon();
    if (code == ExitCode::Interrupted) {
        m_program.link.closePort();
    } else {
        m_program.link.drainAndClose();
    }
    finished.emit(code);
}

}  // namespace korvex::cli
