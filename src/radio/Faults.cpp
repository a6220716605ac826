#include "radio/Faults.h"

#include <algorithm>
#include <array>

#include "base/NumberText.h"

namespace korvex {

namespace {

using Value = std::optional<std::string_view>;

std::optional<int> countIn(Value value) {
    const auto count = value ? parseWhole(*value) : std::nullopt;
    return count && *count >= 0 ? count : std::nullopt;
}

/// A fault that is there or not takes no value.
template <bool Faults::*Flag>
bool flag(Faults& faults, Value value) {
    if (value) return false;
    faults.*Flag = true;
    return true;
}

/// A count that stands for `WithoutValue` when it is left out; -1: it must not be left out.
template <auto Member, int WithoutValue>
bool count(Faults& faults, Value value) {
    const auto number = value || WithoutValue < 0 ? countIn(value) : WithoutValue;
    if (!number) return false;
    faults.*Member = *number;
    return true;
}

bool refusesItem(Faults& faults, Value value) {
    if (!value || value->empty()) return false;
    const bool isMenuItem = value->size() == 3 && std::all_of(value->begin(), value->end(), isDigit);
    std::string beginning = (isMenuItem ? "EX" : "") + std::string(*value);
    std::transform(beginning.begin(), beginning.end(), beginning.begin(), asciiUpper);
    faults.refusesItems.push_back(beginning);
    return true;
}

bool none(Faults& faults, Value value) {
    if (!value) faults = {};
    return !value;
}

struct Entry {
    std::string_view name;
    bool (*apply)(Faults&, Value);
};
constexpr auto entries = std::to_array<Entry>({
    {"none", none},
    {"deaf", flag<&Faults::deaf>},
    {"deaf-once", count<&Faults::deafOnce, 1>},
    {"deaf-after", count<&Faults::deafAfter, -1>},
    {"slow", count<&Faults::slowMs, -1>},
    {"split", flag<&Faults::split>},
    {"glued", count<&Faults::glued, 2>},
    {"garbage", flag<&Faults::garbage>},
    {"eighth-bit", flag<&Faults::eighthBit>},
    {"refuses", flag<&Faults::refuses>},
    {"refuses-item", refusesItem},
    {"unasked", flag<&Faults::unasked>},
    {"one-at-a-time", flag<&Faults::oneAtATime>},
    {"echoes", flag<&Faults::echoes>},
    {"unplugged", count<&Faults::unplugged, 0>},
    {"forgets-write", count<&Faults::forgetsWrite, 0>},
});

}  // namespace

Failure setFault(Faults& faults, std::string_view text) {
    const auto equals = text.find('=');
    const auto name = text.substr(0, equals);
    const Value value = equals == std::string_view::npos ? Value() : text.substr(equals + 1);
    const auto* entry =
        std::find_if(entries.begin(), entries.end(), [name](const Entry& known) { return known.name == name; });
    if (entry == entries.end()) {
        return RuntimeError{errors::InvalidPropertyValue, "There is no fault \"" + std::string(name) + "\"."};
    }
    if (!entry->apply(faults, value)) {
        return RuntimeError{errors::InvalidPropertyValue,
                            "The fault \"" + std::string(text) + "\" needs another value."};
    }
    return {};
}

std::string_view faultHelp() {
    return "  deaf               hears no command\n"
           "  deaf-once[=N]      does not hear the Nth command from now (the next one)\n"
           "  deaf-after=N       hears N more commands, then none\n"
           "  slow=MS            answers MS milliseconds later\n"
           "  split              answers come in pieces\n"
           "  glued[=N]          N answers come at once (2)\n"
           "  garbage            noise between answers\n"
           "  eighth-bit         some characters of an answer come above 127\n"
           "  refuses            answers ?; to everything\n"
           "  refuses-item=X     answers ?; to a menu item (042) or to commands that begin with X (MD)\n"
           "  unasked            tells of its frequency without being asked\n"
           "  one-at-a-time      does not hear a command while it is busy with the one before\n"
           "  echoes             what it hears comes back at once, as from some cables\n"
           "  unplugged[=N]      goes away after N more commands (at the next one)\n"
           "  forgets-write[=N]  does not store what the Nth set command sets (what any of them sets)\n"
           "  none               ends all of them\n";
}

}  // namespace korvex
