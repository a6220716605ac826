#include "keyer/KeyerFile.h"

#include <algorithm>
#include <cstddef>

#include "base/Lines.h"

namespace korvex {

namespace {

constexpr char bar = '|';
constexpr std::size_t longestCell = 32'767;

RuntimeError refused(std::ptrdiff_t line, const std::string& why) {
    return {errors::TypeMismatch, "This is not a keyer file: line " + std::to_string(line) + " " + why};
}

bool holdsLineEnd(std::string_view cell) {
    return cell.find_first_of(crLf) != std::string_view::npos;
}

/// Goes through a file row by row. A text may hold line ends, so that rows are not lines.
class RowScanner {
public:
    explicit RowScanner(std::string_view content) : m_content(content), m_rest(content) {}

    /// Where the next row begins; from 1.
    std::ptrdiff_t line() const {
        const auto taken = m_content.substr(0, m_content.size() - m_rest.size());
        return 1 + std::count(taken.begin(), taken.end(), '\n');
    }
    /// Nothing is left but the line that closes the table, or not even that.
    bool atEnd() const {
        const auto behind = m_rest.starts_with(bar) ? m_rest.substr(1) : m_rest;
        return behind.find_first_not_of(crLf) == std::string_view::npos;
    }
    Result<KeyerFileRow> takeRow() {
        const auto begin = line();
        if (!m_rest.starts_with(bar)) return refused(begin, "does not begin with \"|\"");
        m_rest.remove_prefix(1);
        KeyerFileRow row;
        for (auto& cell : row) {
            const auto end = m_rest.find(bar);
            if (end == std::string_view::npos) return refused(begin, "is cut off");
            if (end > longestCell) return refused(begin, "has a text that is too long");
            cell = m_rest.substr(0, end);
            m_rest.remove_prefix(end + 1);
        }
        // Only a text may hold a line end: else a bar is missing.
        if (holdsLineEnd(row.front()) || holdsLineEnd(row.back())) return refused(begin, "is cut off");
        if (!takeLineEnd()) return refused(begin, "does not end behind its third column");
        return row;
    }

private:
    bool takeLineEnd() {
        if (m_rest.empty()) return true;
        const bool both = m_rest.starts_with(crLf);
        if (!both && crLf.find(m_rest.front()) == std::string_view::npos) return false;
        m_rest.remove_prefix(both ? 2 : 1);
        return true;
    }

    std::string_view m_content;
    std::string_view m_rest;
};

}  // namespace

std::string keyerFileText(const KeyerFileRows& rows) {
    std::string text;
    for (const auto& row : rows) {
        for (const auto& cell : row) text += bar + cell;
        text += bar;
        text += crLf;
    }
    text += bar;
    text += crLf;
    text += crLf;
    return text;
}

KeyerFileRows keyerFileRows(const KeyerTexts& texts) {
    KeyerFileRows rows = {keyerTitles};
    for (int memory = 1; memory <= keyerMemories; ++memory) {
        const WireText& text = keyerText(texts, memory);
        rows.push_back({keyerReadCommand(memory), text.bytes(), std::to_string(text.size())});
    }
    return rows;
}

Result<KeyerFileRows> parseKeyerFile(std::string_view content) {
    KeyerFileRows rows;
    RowScanner scanner(content);
    while (!scanner.atEnd()) {
        const auto line = scanner.line();
        if (rows.size() > keyerMemories) return refused(line, "is one too many");
        auto row = scanner.takeRow();
        if (!row) return row.error();
        const auto label = keyerReadCommand(static_cast<int>(rows.size()));
        if (rows.empty() && row->front().starts_with("KM")) return refused(line, "is not the titles");
        if (!rows.empty() && row->front() != label) return refused(line, "does not begin with " + label);
        rows.push_back(std::move(*row));
    }
    if (rows.size() < 2) return refused(scanner.line(), "is not the text of KM1;");
    return rows;
}

}  // namespace korvex
