#include "cli/Session.h"

#include <algorithm>
#include <utility>

#include "base/CodePage.h"

namespace korvex::cli {

namespace {

constexpr int pollMs = 20;
constexpr int testMs = 1200;      // the communication test gives its verdict within 1000
constexpr int silenceMs = 5'000;  // a transfer that waits for ever in the windows is given up here
constexpr int listenMs = 600;     // a slow radio answers within half a second

std::size_t refusals(const std::string& wire) {
    std::size_t count = 0;
    for (auto at = wire.find("?;"); at != std::string::npos; at = wire.find("?;", at + 2)) ++count;
    return count;
}

}  // namespace

Session::Session(Program& program, GivenFile& givenFile, const Command& command, std::ostream& out, std::ostream& err)
    : m_program(program),
      m_givenFile(givenFile),
      m_command(command),
      m_out(out),
      m_err(err),
      m_poll(program.machine().clock.makeTimer()),
      m_kinds(fileKinds(program)) {
    m_poll->setInterval(pollMs);
    m_connections += m_poll->tick.connect([this] { onPoll(); });
    m_connections += program.link.closed.connect([this] {
        if (m_stage == Stage::Testing || m_stage == Stage::Listening) finish(ExitCode::Port);
    });
}

void Session::tell(const std::string& text) {
    m_err << "korvexctl: " << text << "\n";
}

void Session::start() {
    const auto known = std::any_of(m_kinds.begin(), m_kinds.end(),
                                   [this](const FileKind& kind) { return kind.name == m_command.kind; });
    if (m_command.verb != Command::Verb::Send && !known) {
        tell("there is no kind of file called " + m_command.kind);
        finish(ExitCode::Usage);
        return;
    }
    configurePort();
    if (m_stage != Stage::Finished && openPort()) waitForTest();
}

void Session::configurePort() {
    m_program.terminal.Form_Load();
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

bool Session::openPort() {
    m_program.link.togglePort();
    if (m_program.link.PortOpen()) return true;
    finish(ExitCode::Port);
    return false;
}

void Session::waitForTest() {
    m_stage = Stage::Testing;
    m_deadline = m_program.machine().clock.now() + testMs;
    m_poll->setEnabled(true);
}

void Session::onPoll() {
    const bool late = m_program.machine().clock.now() >= m_deadline;
    if (m_stage == Stage::Testing) {
        const std::string text = received();
        const auto answer = text.find("FA");
        const bool answered = answer != std::string::npos && text.find(';', answer) != std::string::npos;
        if (answered && !m_program.link.testing()) {
            begin();  // with the verdict behind us: nothing but answers comes from now on
        } else if (late) {
            tell("the radio does not answer; please check cable, speed and the radio's menus 28 to 30");
            finish(ExitCode::Answers);
        }
    } else if (m_stage == Stage::Listening && late) {
        onListened();
    } else if (m_stage == Stage::Working && late) {
        tell("the radio has stopped answering");
        finish(ExitCode::Answers);
    }
}

void Session::begin() {
    m_poll->setEnabled(false);
    m_stage = Stage::Working;
    if (m_command.verb == Command::Verb::Send) {
        beginSend();
    } else {
        beginTransfer();
    }
}

void Session::beginTransfer() {
    const auto kind = std::find_if(m_kinds.begin(), m_kinds.end(),
                                   [this](const FileKind& row) { return row.name == m_command.kind; });
    Transfer& transfer = m_command.verb == Command::Verb::Save ? kind->save : kind->restore;
    m_givenFile.file = m_command.file;
    m_givenFile.objection = transfer.objection;
    m_finishTransfer = transfer.finish;
    m_transferEnd = transfer.ended->connect([this](TransferEnd end) { onEnded(end); });
    const auto watch = [this](int) { m_deadline = m_program.machine().clock.now() + silenceMs; };
    m_connections += m_program.progress.value.bind(watch);
    m_poll->setEnabled(true);
    if (const auto end = transfer.start()) onEnded(*end);
}

void Session::beginSend() {
    m_program.link.clearTraffic();
    m_program.link.send(m_command.text);
    listen(listenMs);
}

void Session::onEnded(TransferEnd end) {
    if (m_stage != Stage::Working) return;
    if (end == TransferEnd::Done && m_finishTransfer) end = std::exchange(m_finishTransfer, nullptr)();
    switch (end) {
        case TransferEnd::Done:
            if (m_command.verb == Command::Verb::Restore) {
                listen(listenMs);
            } else {
                finish(ExitCode::Done);
            }
            return;
        case TransferEnd::NoAnswer:
            tell("the radio's answers did not come in time");
            finish(ExitCode::Answers);
            return;
        case TransferEnd::Cancelled:
            tell(m_givenFile.objected + "; nothing was written");
            finish(ExitCode::Answers);
            return;
        case TransferEnd::PortClosed: finish(ExitCode::Port); return;
        case TransferEnd::FileFailed: break;
    }
    if (const std::string& why = m_program.link.panels().Error.get(); !why.empty()) tell(why);
    finish(ExitCode::File);
}

void Session::listen(int ms) {
    m_stage = Stage::Listening;
    m_deadline = m_program.machine().clock.now() + ms;
    m_poll->setEnabled(true);
}

void Session::onListened() {
    const std::string heard = received();
    const auto refused = refusals(heard);
    if (m_command.verb == Command::Verb::Send) {
        std::string text = utf8FromWire(heard);
        std::erase(text, '\r');
        m_out << text << std::flush;
    } else if (refused > 0) {
        tell("the radio refused " + std::to_string(refused) + " of the lines");
    }
    finish(refused > 0 ? ExitCode::Answers : ExitCode::Done);
}

void Session::interrupt() {
    if (m_stage != Stage::Finished) finish(ExitCode::Interrupted);
}

void Session::finish(ExitCode code) {
    if (m_stage == Stage::Finished) return;
    m_stage = Stage::Finished;
    m_poll->setEnabled(false);
    if (code == ExitCode::Interrupted) {
        m_program.link.closePort();
    } else {
        m_program.link.drainAndClose();
    }
    finished.emit(code);
}

}  // namespace korvex::cli
