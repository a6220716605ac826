#pragma once

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileDialog.h"
#include "platform/MsgBox.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"

namespace korvex::fakes {

/// Answers boxes as the test foresaw. A box that nobody foresaw fails the test, and so does a foreseen one that never
/// came (at the end).
class FakeMsgBox : public MsgBox {
public:
    ~FakeMsgBox() override {
        for (const auto& box : m_foreseen) ADD_FAILURE() << "this box never came: " << box.textPart;
    }
    /// The next box must hold `textPart` in its text.
    void foresee(std::string textPart, MsgAnswer answer = MsgAnswer::Ok) {
        m_foreseen.push_back({std::move(textPart), answer});
    }
    MsgAnswer show(const MsgBoxRequest& request) override {
        shown.push_back(request);
        if (whileShown) whileShown();
        if (m_foreseen.empty()) {
            ADD_FAILURE() << "unforeseen box: [" << request.title << "] " << request.text;
            return MsgAnswer::Ok;
        }
        const Foreseen next = m_foreseen.front();
        m_foreseen.pop_front();
        EXPECT_NE(request.text.find(next.textPart), std::string::npos) << "instead came: " << request.text;
        return next.answer;
    }

    std::vector<MsgBoxRequest> shown;
    std::function<void()> whileShown;  ///< what happens while a box is open

private:
    struct Foreseen {
        std::string textPart;
        MsgAnswer answer;
    };
    std::deque<Foreseen> m_foreseen;
};

/// Answers file dialogs in the order in which the test foresaw them; same strictness.
class FakeFileDialog : public FileDialog {
public:
    ~FakeFileDialog() override {
        for (const auto& answer : m_answers)
            ADD_FAILURE() << "this answer was never asked for: " << answer.value_or("cancel");
    }
    void choose(std::string file) { m_answers.emplace_back(std::move(file)); }
    void cancel() { m_answers.emplace_back(std::nullopt); }

    std::optional<std::string> show(const FileDialogRequest& request) override {
        shown.push_back(request);
        if (whileShown) whileShown();
        if (m_answers.empty()) {
            ADD_FAILURE() << "unforeseen dialog: " << request.title;
            return std::nullopt;
        }
        auto answer = m_answers.front();
        m_answers.pop_front();
        return answer;
    }

    std::vector<FileDialogRequest> shown;
    std::function<void()> whileShown;

private:
    std::deque<std::optional<std::string>> m_answers;
};

/// Settings in memory.
class FakeSettings : public SettingsStore {
public:
    std::string get(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view fallback) const override {
        EXPECT_EQ(application, applicationName);
        const auto found = values.find(std::string(section) + "/" + std::string(key));
        return found == values.end() ? std::string(fallback) : found->second;
    }
    void save(std::string_view application, std::string_view section, std::string_view key,
              std::string_view value) override {
        EXPECT_EQ(application, applicationName);
        values[std::string(section) + "/" + std::string(key)] = value;
    }
    /// By "section/key".
    std::map<std::string, std::string> values;
};

/// Remembers what was started, and fails when told to.
class FakeShell : public Shell {
public:
    Failure openTextEditor(const std::string& file) override { return note("editor " + file); }
    Failure openBrowser(const std::string& file) override { return note("browser " + file); }
    Failure openSystemInformation() override { return note("system information"); }

    std::vector<std::string> started;
    Failure fails;

private:
    Failure note(std::string what) {
        started.push_back(std::move(what));
        return fails;
    }
};

}  // namespace korvex::fakes
