#pragma once

#include "platform/MsgBox.h"

namespace korvex {

/// Message boxes over the window in front. Texts are shown as they are (no markup) and can be selected and copied.
/// Enter takes the first button. Escape, and a box closed from outside, take the one that changes least: No, Abort or
/// Cancel, or Ok where it stands alone.
class QtMsgBox : public MsgBox {
public:
    MsgAnswer show(const MsgBoxRequest& request) override;
};

}  // namespace korvex
