#include "windows/ui/PortSwitch.h"

#include <QAction>
#include <QToolBar>
#include <QToolButton>
#include <utility>

namespace korvex {

PortSwitch::PortSwitch(std::function<bool()> isOpen, std::function<void()> toggle, QObject* parent)
    : QObject(parent), m_isOpen(std::move(isOpen)), m_toggle(std::move(toggle)) {}

void PortSwitch::add(QAction* action, const QToolBar* bar) {
    action->setCheckable(true);
    action->setChecked(m_isOpen());
    m_actions.push_back(action);
    connect(action, &QAction::toggled, this, [this](bool checked) {
        if (checked == m_isOpen()) return;  // it followed the port
        QMetaObject::invokeMethod(
            this, [this, checked] { bringTo(checked); }, Qt::QueuedConnection);
    });
    auto* button = bar ? qobject_cast<QToolButton*>(bar->widgetForAction(action)) : nullptr;
    // A click goes by way of the action; an assistive program's toggle reaches the button alone.
    if (button) connect(button, &QToolButton::toggled, action, &QAction::setChecked);
}

void PortSwitch::bringTo(bool open) {
    showState();  // also while a box tells why the port does not open
    if (open != m_isOpen()) m_toggle();
    showState();
}

void PortSwitch::showState() {
    for (QAction* action : m_actions) action->setChecked(m_isOpen());
}

}  // namespace korvex
