#pragma once

#include <string>
#include <utility>
#include <vector>

#include "options/ProgramForm.h"

namespace korvex {

/// What a value or an operand may be: FILE is a file, DIR a folder, and what has words is one of them.
struct ValueForm {
    std::string name;
    std::vector<std::string> words;
    enum class Kind { Text, File, Folder, Device } kind = Kind::Text;
};

/// What stands next on the command line, behind the words that are there already.
struct NextWord {
    std::string count;       ///< of those words
    std::string begin;       ///< of those words, joined by blanks: the first two, if there are two
    bool beginOnly = false;  ///< the second of those may be any word
    std::vector<std::pair<std::string, std::string>> words;  ///< commands with their help, or
    std::string value;                                       ///< an operand's name
};

/// Every value and operand that something can be offered for, each once.
std::vector<ValueForm> valueForms(const ProgramForm& form);
std::vector<NextWord> nextWords(const ProgramForm& form);

std::string joined(const std::vector<std::string>& words, const std::string& between);
/// The names of the options that want a value.
std::vector<std::string> namesWithValue(const ProgramForm& form);
/// The text in '...' where a quote is written as `quote`; on one line, as shells show it.
std::string quoted(const std::string& text, const std::string& quote);
/// The text with every "@NAME@" and so on in it replaced.
std::string filled(std::string text, const std::vector<std::pair<std::string, std::string>>& parts);

std::string bashCompletion(const ProgramForm& form);
std::string zshCompletion(const ProgramForm& form);
std::string fishCompletion(const ProgramForm& form);

}  // namespace korvex
