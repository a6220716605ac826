#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cat/CatLink.h"
#include "doctor/Questions.h"
#include "report/RadioReport.h"

namespace korvex {

/// Asks a radio what it is and how it answers, with questions alone: nothing is set, nothing changes, nothing
/// transmits. One question is on its way at a time; an answer that does not come is asked for once more, a refusal, too
/// ("?;" is also what a busy radio says). It ends early when the radio is no FT-2000, when it does not answer two
/// questions in a row nor "ID;" behind them, with the port, and as a transfer ends.
class Examination {
public:
    explicit Examination(CatLink& link) : m_link(link) {}

    /// `ended` tells the end, at once if the line is not to be had: Done, Refused for another radio, NoAnswer.
    /// `begun` is the report as far as it is known; `withSettings`: it gets the answers as they came, too.
    void begin(RadioReport begun, bool withSettings);
    /// Gives the line back without a word.
    void stop() { m_operation.reset(); }

    /// What has been seen so far; what follows from it is judged elsewhere.
    const RadioReport& report() const { return m_report; }

    Signal<const Outcome&> ended;

private:
    const Question& question() const { return questions()[m_at]; }
    void next();
    void startTested();
    void start();
    void ask();
    Rest take(std::string_view answer);
    Rest takeUnasked(std::string_view piece);
    void settle(const std::string& answer);
    void onPatience();
    void onSilent();
    bool passesOver() const;
    void probe();
    void keep(const Question& question, const std::string& answer);
    void keepChannel(std::string_view query, std::string_view answer);
    void noteDelay(std::string_view query, std::string_view answer);
    void askTwoAtOnce();
    void listen();
    void complete();
    int lineMs(std::size_t characters) const;

    CatLink& m_link;
    std::unique_ptr<Operation> m_operation;
    RadioReport m_report;
    bool m_withSettings = false;
    std::size_t m_at = 0;     // of the questions
    int m_tries = 0;          // of the present one
    bool m_refused = false;   // it was, at the first asking
    std::string m_candidate;  // what came for it under another name
    std::int64_t m_askedAt = 0;
    int m_silent = 0;  // questions
    int m_silentInARow = 0;
    int m_longestDelay = 0;                            // ms
    int m_owed = 0;                                    // answers to questions that were sent in one go
    std::map<std::string, std::vector<int>> m_delays;  // by letters, ms
    std::map<std::string, std::vector<int>> m_doubtfulDelays;
    Connection m_noise;
};

}  // namespace korvex
