#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace korvex {

/// What a program has declared of its command line, from which its pages are made: manual and completions.
struct ProgramForm {
    struct Option {
        std::vector<std::string> names;  ///< "-r", "--device"
        std::string valueName;           ///< empty: a switch
        std::string help;
        std::string group;  ///< the heading that it stands under
    };
    struct Command {
        std::string name;  ///< one word or two
        std::vector<std::string> operands;
        std::string help;
    };
    struct Operand {
        std::string name;
        std::string help;
    };
    struct Section {
        std::string title;
        std::string text;  ///< paragraphs with an empty line between; lines that begin with blanks stay as they are
    };

    std::string name;
    std::string about;  ///< "korvexctl: what it is", and paragraphs behind that
    std::vector<Option> options;
    std::vector<Command> commands;
    std::vector<Operand> operands;                          ///< of a program without commands; they may be left out
    std::map<std::string, std::vector<std::string>> words;  ///< the values that a value or operand name stands for
    std::vector<std::pair<std::string, std::string>> exitCodes;  ///< code and meaning
    std::vector<Section> sections;                               ///< of the manual page
};

/// The manual page, for man.
std::string manualPage(const ProgramForm& form);

/// What completes the program's command line in "bash", "zsh" or "fish"; empty for another shell.
std::string completion(const ProgramForm& form, const std::string& shell);

}  // namespace korvex
