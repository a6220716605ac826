#pragma once

#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "backup/ReadSoFar.h"
#include "cat/Recollection.h"

namespace korvex {

/// In the folder of a backup that is not whole: what has been read. Each answer stands in it as soon as it has come, so
/// that it outlives the program; when a reading is whole the file is written anew, so that it outlives a power cut.
class BackupJournal {
public:
    /// Keeps nothing any more, and knows nothing.
    void close();
    /// `before` is what an earlier backup has left in the file. Nothing is written yet.
    void begin(std::string file, std::string timeOfDay, ReadSoFar before = {});
    bool isOpen() const { return !m_file.empty(); }

    const ReadSoFar& soFar() const { return m_soFar; }
    bool isWhole(const std::string& reading) const;
    /// What the conversations of a reading know, and what they tell.
    Recollection recollectionOf(const std::string& reading);
    /// The first one counts.
    void noteModel(const std::string& model) {
        if (m_soFar.model.empty()) m_soFar.model = model;
    }
    /// All that a reading has brought, item by item.
    struct Told {
        std::string item;
        std::string query;   ///< wire text
        std::string answer;  ///< wire text; "?;" where the radio has refused
    };
    Failure noteWhole(const std::string& reading, const std::vector<Told>& told);
    /// What a reading has brought is worth nothing.
    void forget(const std::string& reading);
    /// When the answers of a reading came: the sessions, in their order.
    std::vector<std::string> timesOf(const std::string& reading) const;

private:
    void add(const std::string& reading, const Told& told);
    int session();

    std::string m_file;  // empty: nothing is kept
    std::string m_timeOfDay;
    bool m_hasSession = false;
    ReadSoFar m_soFar;
    std::ofstream m_tail;  // the file, to write behind its end
};

/// What the file is called.
inline constexpr const char* journalName = "unfinished.txt";

}  // namespace korvex
