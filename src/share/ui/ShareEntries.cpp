#include "share/ui/ShareEntries.h"

#include <QAction>
#include <QPointer>

namespace korvex {

void addShareEntries(QMenu& menu, ShareEntry& entry, Connections& connections) {
    const auto add = [&](const char* name, const char* caption, Property<bool>& state, void (ShareEntry::*click)()) {
        QAction* action = menu.addAction(QString::fromLatin1(caption));
        action->setObjectName(QString::fromLatin1(name));
        action->setCheckable(true);
        // Whether it is checked the logic says, when it has come about.
        QObject::connect(
            action, &QAction::triggered, action,
            [&entry, &state, click, action] {
                (entry.*click)();
                action->setChecked(state);
            },
            Qt::QueuedConnection);
        connections += state.bind([shown = QPointer<QAction>(action)](bool on) {
            if (shown) shown->setChecked(on);
        });
    };
    add("mnu_sharePort", "Share Port", entry.sharesPort, &ShareEntry::mnu_sharePort_Click);
    add("mnu_shareRigctl", "Share as rigctld Server", entry.servesRigctl, &ShareEntry::mnu_shareRigctl_Click);
    add("mnu_shareTransmit", "Shared Port may transmit", entry.mayTransmit, &ShareEntry::mnu_shareTransmit_Click);
}

}  // namespace korvex
