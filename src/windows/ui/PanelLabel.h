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
    void showText(const std::string& text);

    QString m_meaning;
    Connection m_binding;
};

}  // namespace korvex
