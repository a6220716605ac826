#include "platform/qtwidgets/QtMsgBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <vector>

#include "platform/SettingsStore.h"

namespace korvex {

namespace {

struct Choice {
    MsgAnswer answer;
    const char* caption;
};

struct Choices {
    std::vector<Choice> all;    // in the order in which they stand
    std::size_t dismissing;     // the place of the one that Escape takes
    std::size_t preferred = 0;  // the place of the one that Enter takes
};

Choices choicesFor(MsgButtons buttons) {
    switch (buttons) {
        case MsgButtons::Ok: break;
        case MsgButtons::YesNo: return {{{MsgAnswer::Yes, "&Yes"}, {MsgAnswer::No, "&No"}}, 1};
        case MsgButtons::YesNoCareful: return {{{MsgAnswer::Yes, "&Yes"}, {MsgAnswer::No, "&No"}}, 1, 1};
        case MsgButtons::AbortRetryIgnore:
            return {{{MsgAnswer::Abort, "&Abort"}, {MsgAnswer::Retry, "&Retry"}, {MsgAnswer::Ignore, "&Ignore"}}, 0};
        case MsgButtons::CancelTryAgainContinue:
            return {{{MsgAnswer::Cancel, "Cancel"},
                     {MsgAnswer::TryAgain, "&Try Again"},
                     {MsgAnswer::Continue, "&Continue"}},
                    0};
    }
    return {{{MsgAnswer::Ok, "OK"}}, 0};
}

QMessageBox::Icon iconFor(MsgIcon icon) {
    switch (icon) {
        case MsgIcon::None: break;
        case MsgIcon::Stop: return QMessageBox::Critical;
        case MsgIcon::Question: return QMessageBox::Question;
        case MsgIcon::Exclamation: return QMessageBox::Warning;
        case MsgIcon::Information: return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

QString shown(const std::string& text) {
    return QString::fromStdString(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

}  // namespace

MsgAnswer QtMsgBox::show(const MsgBoxRequest& request) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(request.title.empty() ? QString::fromUtf8(applicationName.data()) : shown(request.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(shown(request.text));
    box.setIcon(iconFor(request.icon));
    if (!request.details.empty()) box.setDetailedText(shown(request.details));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    // All in one role: desktops order roles each in their own way, and these stand in a fixed order.
    const Choices choices = choicesFor(request.buttons);
    std::vector<QPushButton*> buttons;
    for (const auto& choice : choices.all) {
        buttons.push_back(box.addButton(QLatin1String(choice.caption), QMessageBox::ActionRole));
    }
    box.setDefaultButton(buttons[choices.preferred]);
    box.setEscapeButton(buttons[choices.dismissing]);
    buttons[choices.preferred]->setFocus();

    box.exec();
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        if (box.clickedButton() == buttons[i]) return choices.all[i].answer;
    }
    return choices.all[choices.dismissing].answer;
}

}  // namespace korvex
