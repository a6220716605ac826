#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>

#include "cat/CatLink.h"

namespace korvex::cli {

/// Which commands the radio has refused while a file was written into it. The radio says "?;" and not what it means;
/// commands are so far apart that it means the last one before, unless the line is very slow.
class WriteRecord {
public:
    explicit WriteRecord(CatLink& link);

    void clear();
    /// The commands, without line ends.
    const std::set<std::string>& refused() const { return m_refused; }
    std::size_t refusals() const { return m_refusals; }

private:
    void onWent(std::string_view wire);
    void onCame(std::string_view wire);

    std::string m_last;
    std::string m_pending;  // of what came: behind the last ";"
    std::set<std::string> m_refused;
    std::size_t m_refusals = 0;
    Connections m_connections;
};

}  // namespace korvex::cli
