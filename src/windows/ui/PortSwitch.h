#pragma once

#include <QObject>
#include <functional>
#include <vector>

class QAction;
class QToolBar;

namespace korvex {

/// The checkable entries and buttons of one port. They show whether it is open, and switch it whichever way they are
/// used: with the mouse, with a key, or by an assistive program, whose "Toggle" changes the mark without any click.
/// The switch acts from the event loop, because the port may have to tell why it does not open.
class PortSwitch : public QObject {
    Q_OBJECT

public:
    PortSwitch(std::function<bool()> isOpen, std::function<void()> toggle, QObject* parent);

    /// An entry of a menu, or of `bar` with the button that it has there.
    void add(QAction* action, const QToolBar* bar = nullptr);

    /// Call it whenever the port has opened or closed.
    void showState();

private:
    void bringTo(bool open);

    std::function<bool()> m_isOpen;
    std::function<void()> m_toggle;
    std::vector<QAction*> m_actions;
};

}  // namespace korvex
