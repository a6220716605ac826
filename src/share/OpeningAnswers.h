#pragma once

#include <cstddef>
#include <memory>

#include "cat/CatLink.h"
#include "platform/Clock.h"
#include "share/SharedLine.h"

namespace korvex {

/// Asks the radio what programs ask when they open it, so that one that comes while an operation of ours has the line
/// finds its answers: once when this is made, and anew a second after the last thing that was set and after each
/// opening of the port. It stops at a radio that does not answer.
class OpeningAnswers {
public:
    OpeningAnswers(CatLink& link, SharedLine& line, Clock& clock);
    OpeningAnswers(const OpeningAnswers&) = delete;
    OpeningAnswers& operator=(const OpeningAnswers&) = delete;
    ~OpeningAnswers();

private:
    void later();
    void begin();
    void askNext();
    void go(std::string_view answer);

    CatLink& m_link;
    SharedLine& m_line;
    std::unique_ptr<Timer> m_pause;
    std::size_t m_next = 0;
    Connections m_connections;
};

}  // namespace korvex
