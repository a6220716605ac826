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
    QMessageBox::ButtonRole role;
};

/// In the order in which they stand; the first is the one that Enter takes.
std::vector<Choice> choicesFor(MsgButtons buttons) {
    switch (buttons) {
        case MsgButtons::Ok: break;
        case MsgButtons::YesNo:
            return {{MsgAnswer::Yes, "&Yes", QMessageBox::YesRole}, {MsgAnswer::No, "&No", QMessageBox::NoRole}};
        case MsgButtons::AbortRetryIgnore:
            return {{MsgAnswer::Abort, "&Abort", QMessageBox::RejectRole},
                    {MsgAnswer::Retry, "&Retry", QMessageBox::AcceptRole},
                    {MsgAnswer::Ignore, "&Ignore", QMessageBox::AcceptRole}};
        case MsgButtons::CancelTryAgainContinue:
            return {{MsgAnswer::Cancel, "Cancel", QMessageBox::RejectRole},
                    {MsgAnswer::TryAgain, "&Try Again", QMessageBox::AcceptRole},
                    {MsgAnswer::Continue, "&Continue", QMessageBox::AcceptRole}};
    }
    return {{MsgAnswer::Ok, "OK", QMessageBox::AcceptRole}};
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
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    const auto choices = choicesFor(request.buttons);
    std::vector<QAbstractButton*> buttons;
    for (const auto& choice : choices) buttons.push_back(box.addButton(QLatin1String(choice.caption), choice.role));
    box.setDefaultButton(qobject_cast<QPushButton*>(buttons.front()));

    box.exec();
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (box.clickedButton() == buttons[i]) return choices[i].answer;
    }
    return choices.front().answer;
}

}  // namespace korvex
