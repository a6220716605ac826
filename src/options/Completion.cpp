#include "options/Completion.h"

#include <algorithm>

namespace korvex {

namespace {

ValueForm::Kind kindOf(const std::string& name) {
    if (name == "FILE" || name == "OTHER" || name == "PATH") return ValueForm::Kind::File;
    if (name == "DIR") return ValueForm::Kind::Folder;
    return name == "DEVICE" ? ValueForm::Kind::Device : ValueForm::Kind::Text;
}

void addValue(std::vector<ValueForm>& values, const ProgramForm& form, const std::string& name) {
    const auto known = std::any_of(values.begin(), values.end(), [&](const auto& value) { return value.name == name; });
    ValueForm value{name, {}, kindOf(name)};
    if (const auto words = form.words.find(name); words != form.words.end()) value.words = words->second;
    if (!known && (!value.words.empty() || value.kind != ValueForm::Kind::Text)) values.push_back(std::move(value));
}

NextWord& at(std::vector<NextWord>& all, const std::string& count, const std::string& begin) {
    const auto same = [&](const NextWord& next) { return next.count == count && next.begin == begin; };
    const auto found = std::find_if(all.begin(), all.end(), same);
    if (found != all.end()) return *found;
    all.push_back({count, begin, false, {}, {}});
    return all.back();
}

void offer(NextWord& next, const std::string& word, const std::string& help) {
    const auto same = [&](const auto& known) { return known.first == word; };
    if (std::none_of(next.words.begin(), next.words.end(), same)) next.words.emplace_back(word, help);
}

void addCommand(std::vector<NextWord>& all, const ProgramForm::Command& command) {
    const auto blank = command.name.find(' ');
    const bool two = blank != std::string::npos;
    const std::string first = command.name.substr(0, blank);
    offer(at(all, "0", ""), first, two ? "" : command.help);
    if (two) offer(at(all, "1", first), command.name.substr(blank + 1), command.help);
    for (std::size_t i = 0; i < command.operands.size(); ++i) {
        NextWord& next = at(all, std::to_string(i + (two ? 2 : 1)), command.name);
        next.beginOnly = !two && i > 0;
        next.value = command.operands[i];
    }
}

void replaceAll(std::string& text, const std::string& what, const std::string& by) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
        text.replace(at, what.size(), by);
    }
}

}  // namespace

std::vector<ValueForm> valueForms(const ProgramForm& form) {
    std::vector<ValueForm> values;
    for (const auto& option : form.options) addValue(values, form, option.valueName);
    for (const auto& operand : form.operands) addValue(values, form, operand.name);
    for (const auto& command : form.commands) {
        for (const auto& operand : command.operands) addValue(values, form, operand);
    }
    return values;
}

std::vector<NextWord> nextWords(const ProgramForm& form) {
    std::vector<NextWord> all;
    for (const auto& command : form.commands) addCommand(all, command);
    for (const auto& operand : form.operands) {
        NextWord& next = at(all, std::to_string(all.size()), "");
        next.beginOnly = all.size() > 1;
        next.value = operand.name;
    }
    return all;
}

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string all;
    for (const auto& word : words) all += (all.empty() ? "" : between) + word;
    return all;
}

std::vector<std::string> namesWithValue(const ProgramForm& form) {
    std::vector<std::string> names;
    for (const auto& option : form.options) {
        if (!option.valueName.empty()) names.insert(names.end(), option.names.begin(), option.names.end());
    }
    return names;
}

std::string quoted(const std::string& text, const std::string& quote) {
    std::string line = text;
    replaceAll(line, "\n", " ");
    replaceAll(line, "'", quote);
    return "'" + line + "'";
}

std::string filled(std::string text, const std::vector<std::pair<std::string, std::string>>& parts) {
    for (const auto& [mark, part] : parts) replaceAll(text, mark, part);
    return text;
}

std::string completion(const ProgramForm& form, const std::string& shell) {
    if (shell == "bash") return bashCompletion(form);
    if (shell == "zsh") return zshCompletion(form);
    return shell == "fish" ? fishCompletion(form) : std::string();
}

}  // namespace korvex
