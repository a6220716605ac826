#pragma once

#include "gridedit/FlexGridEditor.h"

namespace korvex {

/// The editor of the Menu Manager: only yellow cells can be edited, which is how that window marks the settings column
/// that the user works on.
class clsFlexGridEdit : public FlexGridEditor {
public:
    static constexpr int editableColour = 65535;  // yellow

protected:
    bool mayOpen() const override { return cells().CellBackColor(cells().Row(), cells().Col()) == editableColour; }
};

}  // namespace korvex
