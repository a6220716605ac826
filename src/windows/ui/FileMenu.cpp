#include "windows/ui/FileMenu.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>

namespace korvex {

namespace {

void fill(QMenu& recent, const FileMenuCalls& calls) {
    recent.clear();
    int number = 0;
    for (const auto& file : calls.recent()) {
        const QString path = QString::fromStdString(file);
        QString caption = QStringLiteral("&%1  %2").arg(++number).arg(
            QFileInfo(path).fileName().replace(QLatin1Char('&'), QLatin1String("&&")));
        QAction* entry = recent.addAction(caption);
        entry->setToolTip(QDir::toNativeSeparators(path));
        QObject::connect(
            entry, &QAction::triggered, &recent, [open = calls.openThis, file] { open(file); }, Qt::QueuedConnection);
    }
    if (number == 0) recent.addAction(QStringLiteral("none yet"))->setEnabled(false);
}

}  // namespace

void addFileEntries(QMenu& menu, const FileMenuCalls& calls) {
    menu.addSeparator();
    QAction* open = menu.addAction(QStringLiteral("&Open File..."));
    open->setObjectName(QStringLiteral("mnu_OpenFile"));
    open->setShortcut(QKeySequence::Open);
    QObject::connect(open, &QAction::triggered, &menu, calls.ask, Qt::QueuedConnection);
    QMenu* recent = menu.addMenu(QStringLiteral("Recent Files"));
    recent->setObjectName(QStringLiteral("mnu_RecentFiles"));
    recent->setToolTipsVisible(true);
    QObject::connect(recent, &QMenu::aboutToShow, recent, [recent, calls] { fill(*recent, calls); });
}

}  // namespace korvex
