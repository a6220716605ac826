#include "options/OptionParser.h"

#include <CLI/CLI.hpp>

#include "base/Version.h"

namespace korvex {

namespace {

constexpr std::size_t columnWidth = 28;
constexpr std::size_t exitCodeWidth = 12;

/// CLI11 forgets "--" at the end of a command. This hides the hyphen of what stands behind it; no argument of a program
/// holds one.
constexpr char operandMark = '\0';

std::string withoutMark(const std::string& word) {
    return word.substr(word.starts_with(operandMark) ? 1 : 0);
}

/// The last word first, as CLI11 wants them. It would give "--name=" the next word as its value.
std::vector<std::string> forCli11(const std::vector<std::string>& arguments) {
    std::vector<std::string> words;
    bool operands = false;
    for (const auto& word : arguments) {
        if (operands) {
            words.push_back(word.starts_with('-') ? operandMark + word : word);
        } else if (word == "--") {
            operands = true;
        } else if (word.starts_with("--") && word.find('=') == word.size() - 1) {
            words.insert(words.end(), {word.substr(0, word.size() - 1), ""});
        } else {
            words.push_back(word);
        }
    }
    return {words.rbegin(), words.rend()};
}

/// An unknown word goes first: it explains what else is missing.
std::string why(const CLI::App& app, const CLI::ParseError& error) {
    const std::string what = error.what();
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ArgumentMismatch)) {
        return what.substr(0, what.find(':')) + " wants a value";
    }
    const auto unknown = app.remaining();
    return unknown.empty() ? what : "unknown argument \"" + withoutMark(unknown.front()) + "\"";
}

/// "-r,--device" -> "-r", "--device".
std::vector<std::string> namesIn(const std::string& names) {
    const auto comma = names.find(',');
    if (comma == std::string::npos) return {names};
    return {names.substr(0, comma), names.substr(comma + 1)};
}

/// "  save KIND FILE   what it does" for each command.
void listCommands(std::ostream& out, const CLI::App& app, const std::string& before) {
    for (const auto* command : app.get_subcommands({})) {
        std::string form = before + command->get_name();
        for (const auto* operand : command->get_options()) form += " " + operand->get_name(true);
        if (!command->get_description().empty()) {
            CLI::detail::format_help(out, form, command->get_description(), columnWidth);
        }
        listCommands(out, *command, form + " ");
    }
}

}  // namespace

OptionParser::OptionParser(const std::string& program, const std::string& about, const std::string& end)
    : m_app(std::make_unique<CLI::App>(about, program)) {
    m_app->fallthrough()->require_subcommand(0, 1)->set_help_flag("-h,--help", "this page");
    m_app->set_version_flag("--version", program + " " + versionWithCommit() + "\n", "the release");
    m_app->footer(end);
    m_form.name = program;
    m_form.about = about;
    m_form.options = {{{"-h", "--help"}, "", "prints the help page", m_group},
                      {{"--version"}, "", "the release", m_group}};
    addPages();
}

void OptionParser::addPages() {
    words("SHELL", {"bash", "zsh", "fish"});
    option("--completion", "SHELL", "bash, zsh or fish: prints what completes the command line there",
           [this](const std::string& shell) -> Failure {
               m_page = completion(m_form, shell);
               if (!m_page.empty()) return {};
               return RuntimeError{errors::InvalidPropertyValue, "bash, zsh or fish is wanted"};
           });
    m_form.options.push_back({{"--manual"}, "", "prints the manual page; \"man -l -\" shows it", m_group});
    m_app->add_flag_callback(
        "--manual", [this] { m_page = manualPage(m_form); }, m_form.options.back().help);
}

OptionParser::~OptionParser() = default;

void OptionParser::group(const std::string& heading) {
    m_app->option_defaults()->group(heading);
    m_group = heading;
}

void OptionParser::flag(const std::string& names, const std::string& help, bool& target) {
    m_app->add_flag(names, target, help);
    m_form.options.push_back({namesIn(names), "", help, m_group});
}

void OptionParser::option(const std::string& names, const std::string& valueName, const std::string& help, Take take) {
    const auto checked = [names, take = std::move(take)](const std::string& value) {
        if (value.empty()) throw CLI::ValidationError(names + " wants a value");
        if (const auto failure = take(value)) throw CLI::ValidationError(names, failure->text);
    };
    m_app->add_option_function<std::string>(names, checked, help)->trigger_on_parse()->option_text(valueName);
    m_form.options.push_back({namesIn(names), valueName, help, m_group});
}

void OptionParser::words(const std::string& valueName, std::vector<std::string> words) {
    m_form.words[valueName] = std::move(words);
}

void OptionParser::exitCode(const std::string& code, const std::string& meaning) {
    m_form.exitCodes.emplace_back(code, meaning);
}

void OptionParser::manual(const std::string& title, const std::string& text) {
    m_form.sections.push_back({title, text});
}

void OptionParser::operands(const std::string& name, const std::string& help, std::vector<std::string>& target) {
    m_app->add_option(name, target, help)->transform(withoutMark);
    m_form.operands.push_back({name, help});
}

void OptionParser::command(const std::string& name, const std::vector<Operand>& operands, const std::string& help,
                           std::function<void()> chosen) {
    CLI::App* parent = m_app.get();
    const auto blank = name.find(' ');
    if (blank != std::string::npos) {
        const auto first = name.substr(0, blank);
        const auto known = parent->get_subcommands([&first](const auto* other) { return other->check_name(first); });
        parent = known.empty() ? parent->add_subcommand(first) : known.front();
        parent->set_help_flag();
    }
    CLI::App* command = parent->add_subcommand(name.substr(blank + 1), help);
    command->set_help_flag();
    for (const auto& operand : operands) {
        command->add_option(operand.name, operand.target)->required()->transform(withoutMark);
    }
    command->final_callback(std::move(chosen));
    m_form.commands.push_back({name, {}, help});
    for (const auto& operand : operands) m_form.commands.back().operands.push_back(operand.name);
}

std::string OptionParser::helpPage() const {
    std::ostringstream page;
    const bool hasCommands = !m_app->get_subcommands({}).empty();
    page << m_app->get_description() << "\n\nUsage: " << m_app->get_name() << " [options]";
    for (const auto& operand : m_form.operands) page << " [" << operand.name << "]";
    page << (hasCommands ? " COMMAND\n\nCommands:\n" : "\n");
    listCommands(page, *m_app, "");
    CLI::Formatter formatter;
    formatter.column_width(columnWidth);
    const std::string groups = formatter.make_groups(m_app.get(), CLI::AppFormatMode::Normal);
    page << CLI::detail::find_and_replace(groups, "\n\n\n", "\n\n") << m_app->get_footer();
    if (!m_form.exitCodes.empty()) page << "\nExit codes:\n";
    for (const auto& [code, meaning] : m_form.exitCodes) CLI::detail::format_help(page, code, meaning, exitCodeWidth);
    return page.str();
}

Failure OptionParser::read(const std::vector<std::string>& arguments, std::string& print) {
    try {
        m_app->parse(forCli11(arguments));
    } catch (const CLI::CallForHelp&) {
        print = helpPage();
    } catch (const CLI::CallForVersion& version) {
        print = version.what();
    } catch (const CLI::ParseError& error) {
        return RuntimeError{errors::InvalidPropertyValue, why(*m_app, error)};
    }
    if (!m_page.empty()) print = m_page;
    return {};
}

}  // namespace korvex
