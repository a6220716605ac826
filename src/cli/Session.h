#pragma once

#include <memory>
#include <ostream>
#include <string>

#include "app/Program.h"
#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/FileKinds.h"

namespace korvex::cli {

/// One command with a radio, from opening the port to the exit code, on the same logic as the windows:
///
///     open the port -> wait for the answer to the communication test -> transfer, or send and listen
///                   -> listen for refusals -> let the output drain, close the port -> finished
class Session {
public:
    Session(Program& program, GivenFile& givenFile, const Command& command, std::ostream& out, std::ostream& err);

    /// Returns at once; `finished` comes later, or already during the call.
    void start();
    /// Ctrl-C: the port closes, nothing more is sent or written.
    void interrupt();

    Signal<ExitCode> finished;

private:
    void configurePort();
    bool openPort();
    void onPoll();
    void waitForTest();
    void begin();
    void beginTransfer();
    void beginSend();
    void onEnded(TransferEnd end);
    void listen(int ms);
    void onListened();
    void finish(ExitCode code);
    void tell(const std::string& text);
    std::string received() { return m_program.link.received().text(); }

    Program& m_program;
    GivenFile& m_givenFile;
    Command m_command;
    std::ostream& m_out;
    std::ostream& m_err;
    enum class Stage { Idle, Testing, Working, Listening, Finished };
    Stage m_stage = Stage::Idle;
    std::unique_ptr<Timer> m_poll;
    std::int64_t m_deadline = 0;
    std::vector<FileKind> m_kinds;
    Connections m_connections;
    Connection m_transferEnd;
    std::function<TransferEnd()> m_finishTransfer;
};

}  // namespace korvex::cli
