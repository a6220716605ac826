#pragma once

#include <string>

namespace korvex {

enum class MsgIcon { None, Stop, Question, Exclamation, Information };
/// YesNoCareful is YesNo with "No" as what Enter takes: for whatever could lose something.
enum class MsgButtons { Ok, YesNo, YesNoCareful, AbortRetryIgnore, CancelTryAgainContinue };
enum class MsgAnswer { Ok, Yes, No, Abort, Retry, Ignore, Cancel, TryAgain, Continue };

struct MsgBoxRequest {
    std::string text;   ///< UTF-8, CR LF or LF between lines
    std::string title;  ///< UTF-8; empty: the application's title
    MsgIcon icon = MsgIcon::None;
    MsgButtons buttons = MsgButtons::Ok;
    std::string details = {};  ///< UTF-8; too long for the box, and shown when the person asks for it
};

/// Shows a box and waits for its answer; the program's other events go on meanwhile.
class MsgBox {
public:
    virtual ~MsgBox() = default;
    virtual MsgAnswer show(const MsgBoxRequest& request) = 0;

    void exclamation(const std::string& text, const std::string& title = {}) {
        show({text, title, MsgIcon::Exclamation, MsgButtons::Ok});
    }
    /// A question whose "Yes" could lose something: Enter and Escape take "No", and so does a program without windows.
    bool confirm(const std::string& text, const std::string& title = {}) {
        return show({text, title, MsgIcon::Question, MsgButtons::YesNoCareful}) == MsgAnswer::Yes;
    }
    void stop(const std::string& text, const std::string& title = {}) {
        show({text, title, MsgIcon::Stop, MsgButtons::Ok});
    }
};

}  // namespace korvex
