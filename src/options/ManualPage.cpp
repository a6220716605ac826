#include <sstream>

#include "base/Version.h"
#include "options/ProgramForm.h"

namespace korvex {

namespace {

/// Text that man shows as it is: a hyphen that can be copied, no line that is an order.
std::string plain(const std::string& text) {
    std::string out;
    for (const char c : text) {
        const bool orders = (c == '.' || c == '\'') && (out.empty() || out.back() == '\n');
        if (orders) out += "\\&";
        if (c == '\\') {
            out += "\\e";
        } else if (c == '-') {
            out += "\\-";
        } else {
            out += c;
        }
    }
    return out;
}

/// A heading in capitals or a paragraph of its own would be torn by line ends that were made for a terminal.
std::string onOneLine(std::string text) {
    for (auto& c : text) c = c == '\n' ? ' ' : c;
    return text;
}

std::string bold(const std::string& text) {
    return "\\fB" + plain(text) + "\\fR";
}

std::string italic(const std::string& text) {
    return "\\fI" + plain(text) + "\\fR";
}

std::string entry(const std::string& term, const std::string& help) {
    return ".TP\n" + term + "\n" + plain(onOneLine(help)) + "\n";
}

std::string paragraphs(const std::string& text) {
    std::string out;
    bool literal = false;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const bool wanted = line.starts_with(' ');
        if (wanted != literal) out += wanted ? ".PP\n.nf\n" : ".fi\n.PP\n";
        literal = wanted;
        if (line.empty()) {
            out += ".PP\n";
        } else {
            out += plain(line) + "\n";
        }
    }
    return literal ? out + ".fi\n" : out;
}

std::string section(const std::string& title, const std::string& body) {
    return body.empty() ? "" : ".SH " + title + "\n" + body;
}

std::string synopsis(const ProgramForm& form) {
    std::string line = bold(form.name) + " [" + italic("options") + "]";
    if (!form.commands.empty()) line += " " + italic("COMMAND");
    for (const auto& operand : form.operands) line += " [" + italic(operand.name) + "]";
    return line + "\n";
}

/// The first paragraph of `about` stands behind the name.
std::string description(const ProgramForm& form) {
    const auto end = form.about.find("\n\n");
    return end == std::string::npos ? std::string() : paragraphs(form.about.substr(end + 2));
}

std::string commands(const ProgramForm& form) {
    std::string text;
    for (const auto& operand : form.operands) text += entry(italic(operand.name), operand.help);
    for (const auto& command : form.commands) {
        std::string term = bold(command.name);
        for (const auto& operand : command.operands) term += " " + italic(operand);
        text += entry(term, command.help);
    }
    return text;
}

std::string options(const ProgramForm& form) {
    std::string text;
    std::string group = form.options.empty() ? "" : form.options.front().group;
    for (const auto& option : form.options) {
        if (option.group != group) text += ".SS " + (group = option.group) + "\n";
        std::string term;
        for (const auto& name : option.names) term += (term.empty() ? "" : ", ") + bold(name);
        if (!option.valueName.empty()) term += " " + italic(option.valueName);
        text += entry(term, option.help);
    }
    return text;
}

std::string exitCodes(const ProgramForm& form) {
    std::string text;
    for (const auto& [code, meaning] : form.exitCodes) text += entry(bold(code), meaning);
    return text;
}

std::string capitals(std::string text) {
    for (auto& c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return text;
}

}  // namespace

std::string manualPage(const ProgramForm& form) {
    const std::string first = form.about.substr(0, form.about.find('\n'));
    const std::string does = first.substr(first.find(": ") + 2);
    std::string page = ".TH " + capitals(form.name) + " 1 " + std::string(releaseDay) + " \"Korvex " +
                       std::string(versionText) + "\" \"User Commands\"\n";
    page += section("NAME", plain(form.name) + " \\- " + plain(does) + "\n");
    page += section("SYNOPSIS", synopsis(form));
    page += section("DESCRIPTION", description(form));
    page += section(form.commands.empty() ? "OPERANDS" : "COMMANDS", commands(form));
    page += section("OPTIONS", options(form));
    for (const auto& [title, text] : form.sections) page += section(title, paragraphs(text));
    return page + section("EXIT STATUS", exitCodes(form));
}

}  // namespace korvex
