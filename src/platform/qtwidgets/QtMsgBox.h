#pragma once

#include "platform/MsgBox.h"

namespace korvex {

/// Message boxes over the window in front. Texts are shown as they are (no markup) and can be selected and copied.
/// Escape means Ok in a box with that button alone, Cancel or Abort where the box has one, and nothing in a Yes/No box,
/// which wants an answer.
class QtMsgBox : public MsgBox {
public:
    MsgAnswer show(const MsgBoxRequest& request) override;
};

}  // namespace korvex
