#pragma once

#include <QWidget>
#include <functional>

#include "base/Property.h"

class QCheckBox;
class QHBoxLayout;

namespace korvex {

class MenuManager;

/// Below the Menu Manager's grid: which rows are in sight, and what differs.
class MenuFilterBar : public QWidget {
    Q_OBJECT

public:
    /// `before` is called before the rows change.
    MenuFilterBar(MenuManager& logic, std::function<void()> before, QWidget* parent = nullptr);

private:
    void addFilter(Property<bool>& filter, const char* name, const char* caption, const char* meaning,
                   std::function<void(bool)> apply);

    std::function<void()> m_before;
    QHBoxLayout* m_row;
    Connections m_connections;
};

}  // namespace korvex
