#include "options/Completion.h"

namespace korvex {

namespace {

constexpr auto script = R"(#compdef @NAME@
# zsh completion for @NAME@, made by "@NAME@ --completion zsh"

_@NAME@_offer() { # NAME: what may stand for a value or an operand
    case $1 in
@VALUES@    esac
}

_@NAME@() {
    local -a said offers
    local word skip= i previous=$words[CURRENT-1]
    if [[ $PREFIX == --*=* ]]; then
        previous=${PREFIX%%=*}
        compset -P '*='
    fi
    case $previous in
@OPTIONS_WITH_VALUE@    esac
    if [[ $PREFIX == -* ]]; then
        offers=(
@OPTIONS@        )
        _describe -o option offers
        return
    fi
    for ((i = 2; i < CURRENT; i++)); do
        word=$words[i]
        if [[ -n $skip ]]; then
            skip=
            continue
        fi
        case $word in
            (@NAMES_WITH_VALUE@) skip=yes ;;
            (-?*) ;;
            (*) said+=("$word") ;;
        esac
    done
    case "$#said ${said[1,2]}" in
@NEXT@    esac
}

if [[ $funcstack[1] == _@NAME@ ]]; then
    _@NAME@ "$@"
else
    compdef _@NAME@ @NAME@
fi
)";

constexpr auto quote = "'\\''";

/// A colon parts a word from its help.
std::string described(const std::string& word, const std::string& help) {
    return quoted(help.empty() ? word : word + ":" + help, quote);
}

std::string offer(const ValueForm& value) {
    std::string text = "        ('" + value.name + "')\n";
    if (!value.words.empty()) text += "            compadd -- " + joined(value.words, " ") + "\n";
    switch (value.kind) {
        case ValueForm::Kind::File: text += "            _files\n"; break;
        case ValueForm::Kind::Folder: text += "            _files -/\n"; break;
        case ValueForm::Kind::Device:
            text +=
                "            compadd -- /dev/ttyS<->(N) /dev/ttyUSB<->(N) /dev/ttyACM<->(N) /dev/serial/by-id/*(N)\n";
            break;
        case ValueForm::Kind::Text: break;
    }
    return text + "            ;;\n";
}

std::string next(const NextWord& next) {
    std::string text = "        (\"" + next.count + " " + next.begin + (next.beginOnly ? " \"*)" : "\")") + "\n";
    if (next.words.empty()) return text + "            _@NAME@_offer '" + next.value + "'\n            ;;\n";
    text += "            offers=(\n";
    for (const auto& [word, help] : next.words) text += "                " + described(word, help) + "\n";
    return text + "            )\n            _describe command offers\n            ;;\n";
}

}  // namespace

std::string zshCompletion(const ProgramForm& form) {
    std::string values;
    for (const auto& value : valueForms(form)) values += offer(value);
    std::string withValue;
    std::string options;
    for (const auto& option : form.options) {
        for (const auto& name : option.names) options += "            " + described(name, option.help) + "\n";
        if (option.valueName.empty()) continue;
        withValue += "        (" + joined(option.names, "|") + ")\n            _@NAME@_offer '" + option.valueName +
                     "'\n            return\n            ;;\n";
    }
    std::string cases;
    for (const auto& word : nextWords(form)) cases += next(word);
    return filled(script, {{"@VALUES@", values},
                           {"@OPTIONS_WITH_VALUE@", withValue},
                           {"@OPTIONS@", options},
                           {"@NAMES_WITH_VALUE@", joined(namesWithValue(form), "|")},
                           {"@NEXT@", cases},
                           {"@NAME@", form.name}});
}

}  // namespace korvex
