#include "menu/MenuRows.h"

#include <algorithm>

#include "base/NumberText.h"
#include "menu/MenuCommandTable.h"

namespace korvex {

namespace {

struct Continuation {
    int first;
    int last;
    int itemRow;
};

constexpr Continuation continuations[] = {
    {20, 25, 19},    {41, 42, 40},    {46, 48, 45},    {55, 55, 54},    {66, 67, 65},    {69, 71, 68},
    {74, 76, 73},    {79, 80, 78},    {82, 83, 81},    {88, 88, 87},    {101, 102, 100}, {112, 113, 111},
    {115, 115, 114}, {122, 123, 121}, {143, 143, 144}, {157, 157, 156}, {159, 159, 158}, {167, 167, 166},
    {171, 171, 170}, {175, 175, 174}, {179, 179, 178}, {189, 189, 188},
};

}  // namespace

int itemRowOf(int row) {
    for (const auto& rows : continuations) {
        if (row >= rows.first && row <= rows.last) return rows.itemRow;
    }
    return row;
}

bool isMenuNumber(std::string_view text) {
    if (text.size() != 3 || !std::all_of(text.begin(), text.end(), isDigit)) return false;
    const int number = parseWhole(text).value_or(0);
    return number >= 1 && number <= menuItemCount;
}

}  // namespace korvex
