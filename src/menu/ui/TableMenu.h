#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "base/Property.h"

class QAction;
class QKeySequence;
class QMenu;

namespace korvex {

class CatLink;
class MenuManager;

/// What the Menu Manager's menu "Table" has below its first entry: undo and redo, whole columns, the comparison with
/// the radio, the descriptions.
class TableMenu : public QObject {
    Q_OBJECT

public:
    /// `before` is called before an entry acts.
    TableMenu(QMenu& menu, MenuManager& logic, CatLink& link, std::function<void()> before);

private:
    void addHistory(QMenu& menu);
    void addColumns(QMenu& menu);
    void addDescriptions(QMenu& menu);
    QAction* entry(QMenu& menu, const QString& name, const QString& caption, std::function<void()> run);
    void bindStep(QAction& action, const QString& word, Property<std::string>& step);
    std::vector<QAction*> columnEntries(QMenu& menu, const QString& name, void (MenuManager::*run)(int));
    void nameColumns();

    MenuManager& m_logic;
    std::function<void()> m_before;
    std::vector<QAction*> m_select;  // one a settings column
    std::vector<QAction*> m_copy;
    Connections m_connections;
};

}  // namespace korvex
