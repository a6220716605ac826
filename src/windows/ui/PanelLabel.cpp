#include "windows/ui/PanelLabel.h"

namespace korvex {

PanelLabel::PanelLabel(Property<std::string>& text, const QString& objectName, const QString& meaning, QWidget* parent)
    : ElidedLabel(parent), m_meaning(meaning) {
    setObjectName(objectName);
    setAccessibleDescription(meaning);
    m_binding = text.bind([this](const std::string& value) { showText(value); });
}

void PanelLabel::showText(const std::string& text) {
    const QString shown = QString::fromStdString(text);
    setText(shown);
    setAccessibleName(shown.trimmed().isEmpty() ? m_meaning : QString());
}

}  // namespace korvex
