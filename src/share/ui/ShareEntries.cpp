#include "share/ui/ShareEntries.h"

#include <QAction>
#include <QPointer>
#include <type_traits>

namespace korvex {

void addShareEntries(QMenu& menu, ShareEntry& entry, Connections& connections) {
    const auto add = [&](const char* name, const char* caption, auto& state, void (ShareEntry::*click)()) {
        using State = std::decay_t<decltype(state.get())>;  // as it is by itself: switched off
        QAction* action = menu.addAction(QString::fromLatin1(caption));
        action->setObjectName(QString::fromLatin1(name));
        action->setCheckable(true);
        // Whether it is checked the logic says, when it has come about.
        QObject::connect(
            action, &QAction::triggered, action,
            [&entry, &state, click, action] {
                (entry.*click)();
                action->setChecked(state.get() != State());
            },
            Qt::QueuedConnection);
        connections += state.bind([shown = QPointer<QAction>(action)](const State& now) {
            if (shown) shown->setChecked(now != State());
        });
    };
    add("mnu_sharePort", "Share Port", entry.share().device, &ShareEntry::mnu_sharePort_Click);
    add("mnu_shareRigctl", "Share as rigctld Server", entry.share().listeningAt, &ShareEntry::mnu_shareRigctl_Click);
    add("mnu_shareTransmit", "Shared Port may transmit", entry.share().transmitAllowed(),
        &ShareEntry::mnu_shareTransmit_Click);
}

}  // namespace korvex
