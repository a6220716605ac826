#include "report/AnswerForm.h"

#include <algorithm>

#include "base/NumberText.h"

namespace korvex {

namespace {

constexpr std::string_view refusal = "?;";
constexpr std::size_t letters = 2;
constexpr std::size_t longest = 60;  // no answer of the radio is longer

/// Modes are told as 1 to 9 and A to D.
char kindOf(char c) {
    if (isDigit(c) || (c >= 'A' && c <= 'D')) return 'n';
    return c == '+' || c == '-' ? '+' : 'x';
}

/// What of the answer is the question's own and tells nothing.
std::size_t headOf(std::string_view query, std::string_view answer) {
    const std::string_view asked = query.substr(0, query.find(';'));
    return answer.starts_with(asked) ? asked.size() : std::min(letters, answer.size());
}

}  // namespace

std::string formOf(std::string_view query, std::string_view answer) {
    if (answer.empty() || answer == refusal) return std::string(answer);
    const std::size_t head = headOf(query, answer);
    std::string form(answer.substr(0, head));
    std::string_view told = answer.substr(head, answer.size() - head - (answer.ends_with(';') ? 1 : 0));
    if (query.starts_with("KM") || told.size() > longest) {
        const bool braced = told.ends_with('}');
        if (braced) told.remove_suffix(1);
        form += told.empty() ? "" : "*";
        form += braced ? "}" : "";
    } else {
        std::transform(told.begin(), told.end(), std::back_inserter(form), kindOf);
    }
    return form + ";";
}

std::string answerOf(std::string_view form) {
    if (form.empty() || form == refusal) return std::string(form);
    const std::size_t head = std::min(letters, form.size());
    std::string answer(form.substr(0, head));
    for (const char c : form.substr(head)) {
        switch (c) {
            case 'n': answer += '0'; break;
            case 'x': answer += 'A'; break;
            case '*': answer += "TEXT"; break;
            default: answer += c;
        }
    }
    return answer;
}

}  // namespace korvex
