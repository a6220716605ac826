#include "share/OpeningAnswers.h"

#include <array>
#include <string>

namespace korvex {

namespace {

constexpr int pauseMs = 1'000;

/// As seen of hamlib's model 1029 and of flrig.
constexpr std::array<std::string_view, 24> questions = {"ID;",  "AI;",  "VS;",  "IF;", "FA;", "FB;",   "FT;",  "MD0;",
                                                        "MD1;", "SH0;", "NA0;", "PS;", "TX;", "PC;",   "MG;",  "AG0;",
                                                        "PA0;", "RA0;", "IS0;", "BI;", "AC;", "BP00;", "SM0;", "RM8;"};

}  // namespace

OpeningAnswers::OpeningAnswers(CatLink& link, SharedLine& line, Clock& clock)
    : m_link(link), m_line(line), m_pause(clock.makeTimer()) {
    m_pause->setInterval(pauseMs);
    m_connections += m_pause->tick.connect([this] { begin(); });
    m_connections += m_line.changed.connect([this] { later(); });
    m_connections += m_link.opened.connect([this] { later(); });
    begin();
}

OpeningAnswers::~OpeningAnswers() {
    m_line.forget(this);
}

void OpeningAnswers::later() {
    m_pause->setEnabled(false);
    m_pause->setEnabled(true);
}

void OpeningAnswers::begin() {
    m_pause->setEnabled(m_link.PortOpen() && !m_link.isIdle());
    if (!m_link.isIdle()) return;
    m_line.forget(this);
    m_next = 0;
    askNext();
}

void OpeningAnswers::askNext() {
    if (m_next == questions.size()) return;
    const std::string question(questions[m_next++]);
    m_line.ask({this, question, [this](std::string_view answer) { go(answer); }});
}

void OpeningAnswers::go(std::string_view answer) {
    if (!m_link.isIdle()) return later();
    if (!answer.empty()) askNext();
}

}  // namespace korvex
