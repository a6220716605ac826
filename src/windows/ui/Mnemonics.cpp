#include "windows/ui/Mnemonics.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSet>

namespace korvex {

namespace {

constexpr QChar mark = QLatin1Char('&');

QChar letterOf(const QString& text) {
    const qsizetype at = text.indexOf(mark);
    return at >= 0 && at + 1 < text.size() ? text.at(at + 1).toLower() : QChar();
}

/// Where the letter stands: the beginnings of words come first.
qsizetype placeOfFree(const QString& text, const QSet<QChar>& taken) {
    const auto isFree = [&](qsizetype at) {
        return text.at(at).isLetterOrNumber() && !taken.contains(text.at(at).toLower());
    };
    for (qsizetype at = 0; at < text.size(); ++at) {
        if ((at == 0 || text.at(at - 1) == QLatin1Char(' ')) && isFree(at)) return at;
    }
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (isFree(at)) return at;
    }
    return -1;
}

void giveWhenShown(QMenu& menu);

void giveTo(const QList<QAction*>& actions) {
    QSet<QChar> taken;
    for (const QAction* action : actions) taken.insert(letterOf(action->text()));
    for (QAction* action : actions) {
        const QString text = action->text();
        if (!action->isSeparator() && letterOf(text).isNull()) {
            const qsizetype at = placeOfFree(text, taken);
            if (at >= 0) {
                taken.insert(text.at(at).toLower());
                action->setText(QString(text).insert(at, mark));
            }
        }
        if (action->menu()) giveWhenShown(*action->menu());
    }
}

/// Entries may come and change their words until the menu is seen.
void giveWhenShown(QMenu& menu) {
    constexpr const char* followed = "korvexHasLetters";
    if (menu.property(followed).toBool()) return;
    menu.setProperty(followed, true);
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&menu] { giveTo(menu.actions()); });
}

}  // namespace

void giveMnemonics(QMenuBar& bar) {
    giveTo(bar.actions());
}

}  // namespace korvex
