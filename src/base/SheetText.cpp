#include "base/SheetText.h"

#include <algorithm>
#include <utility>

#include "base/Lines.h"

namespace korvex {

namespace {

constexpr std::string_view separators = "\t;,";
constexpr std::string_view lineEnds = "\r\n";

std::string_view firstLine(std::string_view text) {
    return text.substr(0, text.find_first_of(lineEnds));
}

bool isRemark(std::string_view row) {
    return row.starts_with('#') || row.starts_with("\"#");
}

/// Of the first row that has content.
char separatorOf(std::string_view text) {
    while (!text.empty()) {
        const auto line = firstLine(text);
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        if (isRemark(line) || line.find_first_not_of(separators) == std::string_view::npos) continue;
        const auto at = line.find_first_of(separators);
        return at == std::string_view::npos ? '\t' : line[at];
    }
    return '\t';
}

bool isControl(char c) {
    return c >= 0 && c < ' ' && c != '\t' && c != '\r' && c != '\n';
}

int lineEndsIn(std::string_view text) {
    int count = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (lineEnds.find(text[i]) != lineEnds.npos && !text.substr(i).starts_with(crLf)) ++count;
    }
    return count;
}

class SheetReader {
public:
    explicit SheetReader(std::string_view text) : m_rest(text), m_separator(separatorOf(text)) {}

    bool empty() const { return m_rest.empty(); }
    bool atRemark() const { return m_rest.starts_with('#'); }
    void skipLine() {
        m_rest.remove_prefix(firstLine(m_rest).size());
        takeLineEnd();
    }

    Result<SheetRow> row() {
        SheetRow row{m_line, {}};
        bool more = true;
        while (more) {
            auto cell = m_rest.starts_with('"') ? quoted() : Result<std::string>(plain());
            if (!cell) return cell.error();
            row.cells.push_back(std::move(*cell));
            more = !m_rest.empty() && m_rest.front() == m_separator;
            if (more) m_rest.remove_prefix(1);
        }
        takeLineEnd();
        return row;
    }

private:
    std::string plain() {
        const auto end = std::min(m_rest.find(m_separator), m_rest.find_first_of(lineEnds));
        const auto cell = m_rest.substr(0, end);
        m_rest.remove_prefix(cell.size());
        return std::string(cell);
    }

    Result<std::string> quoted() {
        const int begin = m_line;
        const std::string_view before = m_rest;
        auto cell = takeQuotedCell(m_rest);
        if (!cell) return refusedLine(begin, "a quoted cell has no closing quote");
        m_line += lineEndsIn(before.substr(0, before.size() - m_rest.size()));
        if (atCellEnd()) return std::move(*cell);
        return refusedLine(begin, "something stands behind the closing quote of a cell");
    }

    bool atCellEnd() const {
        return m_rest.empty() || m_rest.front() == m_separator || lineEnds.find(m_rest.front()) != lineEnds.npos;
    }

    void takeLineEnd() {
        if (m_rest.empty()) return;
        m_rest.remove_prefix(m_rest.starts_with(crLf) ? 2 : 1);
        ++m_line;
    }

    std::string_view m_rest;
    char m_separator;
    int m_line = 1;
};

Failure whyNotReadable(const SheetRow& row) {
    const auto hasControls = [](const std::string& cell) { return std::any_of(cell.begin(), cell.end(), isControl); };
    if (std::any_of(row.cells.begin(), row.cells.end(), hasControls)) {
        return refusedLine(row.line, "there are control characters");
    }
    return {};
}

bool hasContent(const SheetRow& row) {
    const bool remark = row.cells.front().starts_with('#');
    return !remark && std::any_of(row.cells.begin(), row.cells.end(), [](const auto& cell) { return !cell.empty(); });
}

}  // namespace

std::string quotedCell(std::string_view cell) {
    std::string text = "\"";
    for (const char c : cell) text.append(c == '"' ? 2 : 1, c);
    return text + '"';
}

std::optional<std::string> takeQuotedCell(std::string_view& rest) {
    std::string cell;
    for (std::string_view ahead = rest.substr(1);;) {
        const auto end = ahead.find('"');
        if (end == std::string_view::npos) return std::nullopt;
        cell += ahead.substr(0, end);
        ahead.remove_prefix(end + 1);
        if (!ahead.starts_with('"')) {
            rest = ahead;
            return cell;
        }
        cell += '"';
        ahead.remove_prefix(1);
    }
}

RuntimeError refusedLine(int line, const std::string& why) {
    return {errors::TypeMismatch, "line " + std::to_string(line) + ": " + why};
}

Result<std::vector<SheetRow>> readSheet(std::string_view text) {
    std::vector<SheetRow> rows;
    SheetReader reader(text);
    while (!reader.empty()) {
        if (reader.atRemark()) {
            reader.skipLine();
            continue;
        }
        auto row = reader.row();
        if (!row) return row.error();
        if (auto failure = whyNotReadable(*row)) return *failure;
        if (hasContent(*row)) rows.push_back(std::move(*row));
    }
    return rows;
}

}  // namespace korvex
