#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvex {

/// What came to one question. Wire text.
struct AskedForm {
    std::string query;  ///< "EX042;"
    std::string form;   ///< as formOf has it; "?;" refused; empty: no answer
    bool operator==(const AskedForm&) const = default;
};

/// How long answers to commands of the same two letters take: from the question's end to the beginning of the answer,
/// the line's own time taken off.
struct AnswerDelay {
    static constexpr std::array classesMs = {50, 100, 200, 500, 1'000, 2'000};  ///< the last one for all above, too

    std::string letters;  ///< "EX"
    int usualMs = 0;      ///< the median, to 10 ms
    int withinMs = 0;     ///< one of the classes: none took longer
    bool operator==(const AnswerDelay&) const = default;
};

/// Something that Korvex believes of the radio, beside what this radio showed of it.
struct JudgedBelief {
    std::string id;       ///< "menu-numbers"
    std::string verdict;  ///< "confirmed", "refuted" or "open"
    std::string belief;   ///< a sentence, UTF-8
    std::string shown;    ///< what it was seen by, UTF-8; may be empty
};

/// What a look at a radio has shown: enough to tell an owner what to expect, and to make a simulated radio behave
/// alike. No frequency, text or name of the owner is in it, unless `settings` was filled.
struct RadioReport {
    // how it was made; tells nothing of the radio
    std::string made;              ///< "2026-11-23 21:04 with Korvex 1.0.0", UTF-8
    std::string device;            ///< "ttyUSB0", UTF-8
    std::string adapter;           ///< what it calls itself, without its serial number, UTF-8
    std::optional<int> latencyMs;  ///< the adapter's: so long it keeps characters for itself
    std::string rts;               ///< "raised", "low" or "not known"
    std::string cts;

    // the line and the radio
    std::string line;                         ///< "38400,n,8,2"
    int handshaking = 0;                      ///< 0 to 3, as the port settings number them
    bool echoes = false;                      ///< what is sent comes back
    bool noise = false;                       ///< characters that make no sense stand between the answers
    std::string model;                        ///< "ID0251;", wire text; empty when it did not tell
    std::optional<bool> answersTwoAtOnce;     ///< two questions sent in one go; nothing: it did not come to that
    std::map<std::string, std::string> told;  ///< answers that are told as they came: EX027; to EX030;, GT0;, RF0;, AI;
    std::vector<AskedForm> forms;             ///< in the order in which they were asked
    std::vector<AnswerDelay> delays;          ///< in the order of the letters
    std::vector<std::string> unasked;         ///< the letters of what came without a question
    int channelsTold = 0;                     ///< of 001 to 099
    int channelsOfZeros = 0;                  ///< of those, with a frequency of zeros
    int channelsMisnamed = 0;                 ///< of those, with another channel's number
    std::string channelSources;               ///< each digit that stood where a record has its source (P7), ascending
    std::optional<int> registersWalked;       ///< of 33; nothing: the band stack was left alone
    std::string notHome;                      ///< where it could not be put back to, UTF-8

    // what follows
    std::vector<JudgedBelief> beliefs;
    std::vector<std::string> advice;    ///< for the owner, a sentence each, UTF-8
    std::vector<std::string> settings;  ///< answers as they came, where the owner wanted them in; wire text

    /// Null when it was not asked.
    const AskedForm* form(std::string_view query) const;
    bool wasRefused(std::string_view query) const;
    bool wasAnswered(std::string_view query) const;
    /// "EX028;" as it was told: "3". Empty when it was not.
    std::string value(std::string_view query) const;
    /// The longest time that any answer took, by `withinMs`; 0 when nothing was answered.
    int longestMs() const;
    const JudgedBelief* belief(std::string_view id) const;
    bool isRefuted(std::string_view id) const;
};

}  // namespace korvex
