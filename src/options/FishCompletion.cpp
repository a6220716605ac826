#include "options/Completion.h"

namespace korvex {

namespace {

constexpr auto script = R"fish(# fish completion for @NAME@, made by "@NAME@ --completion fish"

function __@NAME@_offer # NAME: what may stand for a value or an operand
    switch $argv[1]
@VALUES@    end
end

function __@NAME@_said # the words that stand on the command line and are no options
    set -l skip no
    for word in (commandline -opc)[2..-1]
        if test $skip = yes
            set skip no
            continue
        end
        switch $word
            case @NAMES_WITH_VALUE@
                set skip yes
            case '-?*'
            case '*'
                printf '%s\n' $word
        end
    end
end

function __@NAME@_next
    set -l said (__@NAME@_said)
    set -l begin $said[1..2]
    switch (count $said)" $begin"
@NEXT@    end
end

complete -c @NAME@ -f -a '(__@NAME@_next)'
@OPTIONS@)fish";

constexpr auto quote = "\\'";

std::string offer(const ValueForm& value) {
    std::string text = "        case '" + value.name + "'\n";
    if (!value.words.empty()) text += "            printf '%s\\n' " + joined(value.words, " ") + "\n";
    switch (value.kind) {
        case ValueForm::Kind::File: text += "            __fish_complete_path (commandline -ct)\n"; break;
        case ValueForm::Kind::Folder: text += "            __fish_complete_directories (commandline -ct) ''\n"; break;
        case ValueForm::Kind::Device:
            text +=
                "            set -l devices /dev/ttyS* /dev/ttyUSB* /dev/ttyACM* /dev/serial/by-id/*\n"
                "            printf '%s\\n' $devices\n";
            break;
        case ValueForm::Kind::Text: break;
    }
    return text;
}

std::string next(const NextWord& next) {
    std::string text = "        case '" + next.count + " " + next.begin + (next.beginOnly ? " *'" : "'") + "\n";
    if (next.words.empty()) return text + "            __@NAME@_offer '" + next.value + "'\n";
    for (const auto& [word, help] : next.words) {
        text += "            printf '%s\\t%s\\n' " + word + " " + quoted(help, quote) + "\n";
    }
    return text;
}

std::string option(const ProgramForm::Option& option) {
    std::string line = "complete -c @NAME@";
    for (const auto& name : option.names) {
        line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    }
    if (!option.valueName.empty()) line += " -x -a '(__@NAME@_offer \"" + option.valueName + "\")'";
    return line + " -d " + quoted(option.help, quote) + "\n";
}

}  // namespace

std::string fishCompletion(const ProgramForm& form) {
    std::string values;
    for (const auto& value : valueForms(form)) values += offer(value);
    std::string options;
    for (const auto& each : form.options) options += option(each);
    std::string cases;
    for (const auto& word : nextWords(form)) cases += next(word);
    return filled(script, {{"@VALUES@", values},
                           {"@OPTIONS@", options},
                           {"@NAMES_WITH_VALUE@", joined(namesWithValue(form), " ")},
                           {"@NEXT@", cases},
                           {"@NAME@", form.name}});
}

}  // namespace korvex
