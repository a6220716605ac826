#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "TroubleBench.h"

namespace korvex {

namespace {

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

}  // namespace

std::string shareOf(const std::vector<std::string>& facts, const std::vector<std::string>& now, bool all) {
    const auto there = std::count_if(facts.begin(), facts.end(), [&](const std::string& fact) {
        return std::find(now.begin(), now.end(), fact) != now.end();
    });
    const auto count = static_cast<std::ptrdiff_t>(facts.size());
    return there == (all ? count : 0) ? "" : " " + std::to_string(there) + "/" + std::to_string(count);
}

std::string markdown(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    }
    std::string text;
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) text += "| " + padded(row[i], widths[i]) + " ";
        text += "|\n";
        if (&row != &rows.front()) continue;
        for (const auto width : widths) text += "|" + std::string(width + 2, '-');
        text += "|\n";
    }
    return text;
}

void expectOnThePage(const std::string& head, const std::string& found) {
    std::cout << found;
    const std::string page = std::string(SOURCE_DIR) + "/docs/RELIABILITY.md";
    std::string text = fakes::fileContent(page);
    const auto start = text.find(head);
    ASSERT_NE(start, std::string::npos);
    const auto end = text.find("\n\n", start) + 1;
    if (std::getenv("KORVEX_WRITE_RELIABILITY") != nullptr) {
        fakes::writeFile(page, text.replace(start, end - start, found));
        return;
    }
    EXPECT_EQ(text.substr(start, end - start), found)
        << "docs/RELIABILITY.md tells something else; KORVEX_WRITE_RELIABILITY=1 writes it anew";
}

}  // namespace korvex
