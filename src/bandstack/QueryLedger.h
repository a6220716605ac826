#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace korvex {

/// "MD0" of "MD0;": how the answer begins.
std::string_view queryHead(std::string_view query);
/// Whether an answer, not a refusal, answers a query: "MD02;" does "MD0;".
bool answersQuery(std::string_view query, std::string_view answer);

/// Which of the queries that were sent an answer belongs to. The query of a row is repeated every 100 ms until its
/// answer has come, so a radio that takes longer answers one row several times; without this account each repeated
/// answer would move all later rows of the register. Times in ms.
class QueryLedger {
public:
    struct Place {
        int run = 0;  ///< of which reading
        int column = 0;
        int row = 0;
        bool operator==(const Place&) const = default;
    };

    /// Whether the query of `place` should be sent (again) now: not while answers to earlier ones are still coming,
    /// and not sooner than such a radio can have answered.
    bool due(const Place& place, std::int64_t now);
    void sent(const Place& place, std::string_view query, std::int64_t now);
    /// Where an answer belongs that came while the query of `place` was waiting for one. What cannot be told belongs to
    /// `place`; a repeated refusal, and what comes unasked, belong nowhere. A refusal that comes
    /// so early is that of the band-select command.
    std::optional<Place> ownerOf(std::string_view answer, const Place& place, std::string_view query, std::int64_t now);
    void clear() { *this = {}; }

private:
    struct Asked {
        Place place;
        std::string query;
        std::int64_t at;
        bool taken = false;  ///< something that does not fit stands for the answer, which may still come
    };
    using Entry = std::deque<Asked>::iterator;

    template <class Test>
    Entry firstThat(Test test);
    std::optional<Place> ownerOfRefusal(const Place& place, std::int64_t now);
    void answered(const Entry& own, std::int64_t now);
    std::optional<Place> settle(const Entry& entry, std::int64_t now);
    std::int64_t silenceLimit() const;

    std::deque<Asked> m_owed;         // oldest first
    std::int64_t m_lastActivity = 0;  // a query or an answer to one; what comes unasked tells nothing of what is owed
    std::int64_t m_span = 0;          // from the first query of the last answered row to its answer
    std::int64_t m_latency = 0;       // the longest time that a repeated answer was seen to take
};

}  // namespace korvex
