#include "menu/ui/TableMenu.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <utility>

#include "cat/CatLink.h"
#include "menu/MenuManager.h"
#include "menu/SettingsColumns.h"

namespace korvex {

namespace {

QString asCaption(const std::string& text) {
    return QString::fromStdString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

TableMenu::TableMenu(QMenu& menu, MenuManager& logic, CatLink& link, std::function<void()> before)
    : QObject(&menu), m_logic(logic), m_before(std::move(before)) {
    addHistory(menu);
    addColumns(menu);
    menu.addSeparator();
    QAction* compare = entry(menu, QStringLiteral("mnu_compareRadio"), QStringLiteral("Com&pare with FT-2000"),
                             [this] { m_logic.mnu_compareRadio_Click(); });
    m_connections += link.indicators().open.bind([compare](bool open) { compare->setEnabled(open); });
    addDescriptions(menu);
    nameColumns();
    m_connections += m_logic.grid.allChanged.connect([this] { nameColumns(); });
}

QAction* TableMenu::entry(QMenu& menu, const QString& name, const QString& caption, std::function<void()> run) {
    QAction* action = menu.addAction(caption);
    action->setObjectName(name);
    const auto act = [this, run = std::move(run)] {
        m_before();
        run();
    };
    // Queued: what opens a dialog must not keep an assistive program's call waiting until the dialog is closed.
    connect(action, &QAction::triggered, this, act, Qt::QueuedConnection);
    return action;
}

void TableMenu::addHistory(QMenu& menu) {
    menu.addSeparator();
    QAction* undo =
        entry(menu, QStringLiteral("mnu_undo"), QStringLiteral("&Undo"), [this] { m_logic.mnu_undo_Click(); });
    undo->setShortcut(QKeySequence::Undo);
    bindStep(*undo, QStringLiteral("&Undo"), m_logic.history().undoable);
    QAction* redo =
        entry(menu, QStringLiteral("mnu_redo"), QStringLiteral("&Redo"), [this] { m_logic.mnu_redo_Click(); });
    redo->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
    bindStep(*redo, QStringLiteral("&Redo"), m_logic.history().redoable);
}

void TableMenu::bindStep(QAction& action, const QString& word, Property<std::string>& step) {
    m_connections += step.bind([&action, word](const std::string& caption) {
        action.setEnabled(!caption.empty());
        action.setText(caption.empty() ? word : word + QLatin1Char(' ') + asCaption(caption));
    });
}

void TableMenu::addColumns(QMenu& menu) {
    menu.addSeparator();
    QMenu* select = menu.addMenu(QStringLiteral("&Select Column"));
    select->setObjectName(QStringLiteral("mnu_selectColumn"));
    m_select = columnEntries(*select, QStringLiteral("mnu_selectColumn"), &MenuManager::FlexGrid1_RightClick);
    for (std::size_t i = 0; i < m_select.size(); ++i) {
        m_select[i]->setCheckable(true);
        m_select[i]->setShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + int(i))));
    }
    QMenu* copy = menu.addMenu(QStringLiteral("&Copy Column to"));
    copy->setObjectName(QStringLiteral("mnu_copyColumn"));
    m_copy = columnEntries(*copy, QStringLiteral("mnu_copyColumn"), &MenuManager::copyColumnTo);
    entry(menu, QStringLiteral("mnu_loadColumn"), QStringLiteral("&Load Column from Menu File..."),
          [this] { m_logic.mnu_loadColumn_Click(); });
    entry(menu, QStringLiteral("mnu_saveColumn"), QStringLiteral("S&ave Column in Menu File..."),
          [this] { m_logic.mnu_saveColumn_Click(); });
}

std::vector<QAction*> TableMenu::columnEntries(QMenu& menu, const QString& name, void (MenuManager::*run)(int)) {
    constexpr int firstColumn = 7;
    constexpr int columns = 4;
    std::vector<QAction*> actions;
    for (int column = firstColumn; column < firstColumn + columns; ++column) {
        actions.push_back(entry(menu, name + QString::number(column - firstColumn + 1), {},
                                [this, run, column] { std::invoke(run, m_logic, column); }));
    }
    return actions;
}

/// The owner's titles, and which column is the selected one.
void TableMenu::nameColumns() {
    const auto columns = settingsColumns(m_logic.grid);
    for (std::size_t i = 0; i < m_select.size() && i < columns.size(); ++i) {
        const bool selected = columns[i] == m_logic.SelectedSettingsColumn();
        const QString name = asCaption(columnName(m_logic.grid, columns[i]));
        m_select[i]->setText(name);
        m_select[i]->setChecked(selected);
        m_copy[i]->setText(name);
        m_copy[i]->setEnabled(!selected);
    }
}

void TableMenu::addDescriptions(QMenu& menu) {
    menu.addSeparator();
    entry(menu, QStringLiteral("mnu_exportDescriptions"), QStringLiteral("E&xport Descriptions..."),
          [this] { m_logic.mnu_exportDescriptions_Click(); });
    entry(menu, QStringLiteral("mnu_importDescriptions"), QStringLiteral("&Import Descriptions..."),
          [this] { m_logic.mnu_importDescriptions_Click(); });
}

}  // namespace korvex
