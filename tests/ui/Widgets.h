#pragma once

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>
#include <string>

namespace korvex {

/// The control of this name; a test that asks for one that is not there fails.
template <class T>
T* control(const QWidget& window, const char* name) {
    auto* found = window.findChild<T*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

/// A caption as it is read, without the mark of its letter.
inline QString caption(const QAction* entry) {
    return entry->text().remove(QLatin1Char('&'));
}

/// An open window by its name, or null.
template <class T = QWidget>
T* topLevel(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String(name)) return dynamic_cast<T*>(window);
    }
    return nullptr;
}

/// Picks the entry of a menu, and lets happen what waits for the event loop.
inline void choose(const QWidget& window, const char* entry) {
    control<QAction>(window, entry)->trigger();
    QApplication::processEvents();
}

/// The same for a button.
inline void click(const QWidget& window, const char* button) {
    control<QAbstractButton>(window, button)->click();
    QApplication::processEvents();
}

}  // namespace korvex
