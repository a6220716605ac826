#include "windows/ui/PanelLabel.h"

namespace korvex {

PanelLabel::PanelLabel(Property<std::string>& text, const QString& objectName, const QString& meaning, QWidget* parent)
    : ElidedLabel(parent) {
    setObjectName(objectName);
    setAccessibleDescription(meaning);
    m_binding = text.bind([this](const std::string& value) { showNamed(*this, value); });
}

void showNamed(QLabel& label, const std::string& text) {
    const QString shown = QString::fromStdString(text);
    label.setText(shown);
    label.setAccessibleName(shown.trimmed().isEmpty() ? label.accessibleDescription() : QString());
}

}  // namespace korvex
