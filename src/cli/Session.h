#pragma once

#include <functional>
#include <iostream>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "app/Program.h"
#include "backup/Patience.h"
#include "cat/RadioSearch.h"
#include "cli/CommandLine.h"
#include "cli/Console.h"
#include "cli/Files.h"
#include "cli/Job.h"

namespace korvex::cli {

/// What a session is told from outside.
struct Surroundings {
    std::ostream& out;  ///< both show control characters as pictures
    std::ostream& err;
    ItemTitles titles = {};  ///< what the menu items are called
    Files files = {std::cin, std::cout};
};

/// One command with a radio, from opening the port to the exit code, on the same logic as the windows:
///
///     open the port -> wait for the answer to the communication test -> step by step: transfer, listen for refusals
///                   -> let the output drain, close the port -> finished
///
/// A job makes the steps. A step that closes the port at its end has it opened again for the next one. What needs no
/// radio ends before the port is opened.
class Session {
public:
    Session(Program& program, Command command, Surroundings surroundings);

    /// Returns at once; `finished` comes later, or already during the call.
    void start();
    /// Ctrl-C: the port closes, nothing more is sent or written.
    void interrupt();

    Signal<ExitCode> finished;

private:
    void configurePort();
    bool isPortThere();
    bool hasNoPort();
    void openPort();
    void onPoll();
    bool mayLook() const;
    void search();
    void onFound(const RadioSearch::Found& found);
    void onSearchPoll();
    void onSilence();
    void onTestPoll(bool late);
    void beginNext();
    void beginStep();
    void beginSend();
    void onEnded(const Outcome& outcome);
    void onFailed(const Outcome& outcome);
    void stepDone();
    void listen(int ms);
    void onListened();
    void conclude();
    void finish(ExitCode code);
    void tell(const std::string& text);
    std::int64_t now() { return m_program.machine().clock.now(); }
    const Step& step() const { return m_steps[m_stepIndex]; }
    std::string received() { return m_program.link.received().text(); }

    Program& m_program;
    Command m_command;
    Surroundings m_surroundings;
    enum class Stage { Idle, Searching, Testing, Working, Listening, Finished };
    Stage m_stage = Stage::Idle;
    std::unique_ptr<Timer> m_poll;
    std::int64_t m_deadline = 0;
    Patience m_patience;
    Outcome m_outcome;  // of what was sent
    std::unique_ptr<Operation> m_sending;
    std::unique_ptr<RadioSearch> m_search;  // when the radio did not answer
    std::unique_ptr<Job> m_job;             // none for Send
    bool m_jobGoesOn = false;
    std::vector<Step> m_steps;
    std::size_t m_stepIndex = 0;
    Connections m_connections;
    Connection m_transferEnd;
};

}  // namespace korvex::cli
