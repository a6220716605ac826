#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cat/CatLink.h"
#include "platform/Clock.h"
#include "terminal/TransferEnd.h"

namespace korvex::cli {

/// Sends a few commands, one every 100 ms, then waits half a second for what the radio has to say to the last.
class LineSender {
public:
    LineSender(CatLink& link, Clock& clock);

    void send(std::vector<std::string> commands);
    Signal<const Outcome&> ended;

private:
    void onTimer();
    void finish(TransferEnd end);

    CatLink& m_link;
    std::unique_ptr<Timer> m_timer;
    std::vector<std::string> m_commands;
    std::size_t m_next = 0;
    Connections m_connections;
};

}  // namespace korvex::cli
