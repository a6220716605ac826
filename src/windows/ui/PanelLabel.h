#pragma once

#include <string>

#include "base/Property.h"
#include "windows/ui/ElidedLabel.h"

namespace korvex {

/// A panel of a status bar: a label that follows a property. Assistive programs read its text as its name; while the
/// panel is empty they read what the panel is for.
class PanelLabel : public ElidedLabel {
public:
    PanelLabel(Property<std::string>& text, const QString& objectName, const QString& meaning,
               QWidget* parent = nullptr);

private:
    Connection m_binding;
};

/// Shows a text in a label, whose accessible description says what it is for: that is also its name while the text is
/// blank.
void showNamed(QLabel& label, const std::string& text);

}  // namespace korvex
