#include "options/Completion.h"

namespace korvex {

namespace {

constexpr auto script = R"(# bash completion for @NAME@, made by "@NAME@ --completion bash"

_@NAME@_offer() { # NAME: what may stand for a value or an operand, into COMPREPLY
    local IFS=$'\n' device
    case $1 in
@VALUES@    esac
}

_@NAME@() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} said=() word skip='' i
    [[ $cur != = ]] || cur=''
    [[ $prev != = ]] || prev=${COMP_WORDS[COMP_CWORD - 2]}
    COMPREPLY=()
    case $prev in
@OPTIONS_WITH_VALUE@    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W '@OPTIONS@' -- "$cur")
        return
    fi
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        if [[ $skip ]]; then
            [[ $word == = ]] || skip=''
            continue
        fi
        case $word in
            @NAMES_WITH_VALUE@) skip=yes ;;
            -?*) ;;
            *) said+=("$word") ;;
        esac
    done
    case "${#said[@]} ${said[*]:0:2}" in
@NEXT@    esac
}

complete -F _@NAME@ @NAME@
)";

std::string offered(const std::string& flagsAndWords) {
    return "            COMPREPLY+=($(compgen " + flagsAndWords + " -- \"$cur\"))\n";
}

std::string offer(const ValueForm& value) {
    std::string text = "        '" + value.name + "')\n";
    // IFS parts the words at line ends only.
    if (!value.words.empty()) text += offered("-W $'" + joined(value.words, "\\n") + "'");
    if (value.kind == ValueForm::Kind::Device) {
        text +=
            "            for device in /dev/ttyS[0-9]* /dev/ttyUSB* /dev/ttyACM* /dev/serial/by-id/*; do\n"
            "                [[ ! -e $device || $device != \"$cur\"* ]] || COMPREPLY+=(\"$device\")\n"
            "            done\n";
    } else if (value.kind != ValueForm::Kind::Text) {
        text += "            compopt -o filenames\n" + offered(value.kind == ValueForm::Kind::File ? "-f" : "-d");
    }
    return text + "            ;;\n";
}

std::string next(const NextWord& next) {
    const std::string pattern = "\"" + next.count + " " + next.begin + (next.beginOnly ? " \"*" : "\"");
    std::vector<std::string> words;
    for (const auto& [word, help] : next.words) words.push_back(word);
    const std::string then = words.empty()
                                 ? "_@NAME@_offer '" + next.value + "'"
                                 : "mapfile -t COMPREPLY < <(compgen -W '" + joined(words, " ") + "' -- \"$cur\")";
    return "        " + pattern + ") " + then + " ;;\n";
}

}  // namespace

std::string bashCompletion(const ProgramForm& form) {
    std::string values;
    for (const auto& value : valueForms(form)) values += offer(value);
    std::string withValue;
    std::vector<std::string> names;
    for (const auto& option : form.options) {
        names.insert(names.end(), option.names.begin(), option.names.end());
        if (option.valueName.empty()) continue;
        withValue += "        " + joined(option.names, " | ") + ")\n            _@NAME@_offer '" + option.valueName +
                     "'\n            return\n            ;;\n";
    }
    std::string cases;
    for (const auto& word : nextWords(form)) cases += next(word);
    return filled(script, {{"@VALUES@", values},
                           {"@OPTIONS_WITH_VALUE@", withValue},
                           {"@OPTIONS@", joined(names, " ")},
                           {"@NAMES_WITH_VALUE@", joined(namesWithValue(form), " | ")},
                           {"@NEXT@", cases},
                           {"@NAME@", form.name}});
}

}  // namespace korvex
