#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "options/ProgramForm.h"

namespace CLI {
class App;
}

namespace korvex {

/// The command line of a program: its options and, if it has them, its commands, and from the same declarations the
/// help page that names them all (--help), the manual page (--manual) and what completes it in shells (--completion).
/// A value stands as "--name VALUE", "--name=VALUE", "-n VALUE" or "-nVALUE"; options stand before or behind the
/// command; behind "--" nothing is an option. No name may be shortened. CLI11 does the work, in one source file.
class OptionParser {
public:
    using Take = std::function<Failure(const std::string& value)>;
    struct Operand {
        std::string name;
        std::string& target;
    };

    /// `about` stands on top of the help page, "program: what it is" in its first line; `end` below the options.
    OptionParser(const std::string& program, const std::string& about, const std::string& end = {});
    ~OptionParser();

    /// The heading on the help page of the options that follow.
    void group(const std::string& heading);
    void flag(const std::string& names, const std::string& help, bool& target);
    /// Every value that is given goes to `take`, in their order; none of them is empty.
    void option(const std::string& names, const std::string& valueName, const std::string& help, Take take);
    /// What stands behind the options, any number of it, for a program without commands.
    void operands(const std::string& name, const std::string& help, std::vector<std::string>& target);
    /// A command of one word or two; it wants all its operands. `chosen` is called when all arguments are right.
    void command(const std::string& name, const std::vector<Operand>& operands, const std::string& help,
                 std::function<void()> chosen);

    /// A value or operand of this name is one of the words; what shells offer for it. The check is its `take`'s.
    void words(const std::string& valueName, std::vector<std::string> words);
    void exitCode(const std::string& code, const std::string& meaning);
    /// A part of the manual page that the help page has not; its form is that of ProgramForm::Section.
    void manual(const std::string& title, const std::string& text);
    const ProgramForm& form() const { return m_form; }

    /// Reads the arguments behind the program's name. For --help, --version and the like `print` is what to print in
    /// place of a run. The failure's text is for the user and names the argument.
    Failure read(const std::vector<std::string>& arguments, std::string& print);

private:
    void addPages();
    std::string helpPage() const;
    std::unique_ptr<CLI::App> m_app;
    ProgramForm m_form;
    std::string m_group = "OPTIONS";
    std::string m_page;  // that was asked for
};

/// The value as it is.
template <class Text>
OptionParser::Take into(Text& target) {
    return [&target](const std::string& value) -> Failure {
        target = value;
        return {};
    };
}

template <class Number>
OptionParser::Take intoWhole(Number& target, int lowest, int highest) {
    return [&target, lowest, highest](const std::string& value) -> Failure {
        const auto number = parseWhole(value);
        if (number && *number >= lowest && *number <= highest) {
            target = *number;
            return {};
        }
        const auto range = std::to_string(lowest) + " to " + std::to_string(highest);
        return RuntimeError{errors::InvalidPropertyValue, "a whole number from " + range + " is wanted"};
    };
}

}  // namespace korvex
