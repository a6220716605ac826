#pragma once

#include <QDialog>
#include <filesystem>

#include "platform/MsgBox.h"
#include "platform/Shell.h"

namespace korvex {

/// The about box.
class frmAbout : public QDialog {
    Q_OBJECT

public:
    frmAbout(QWidget* owner, const std::filesystem::path& programFile, Shell& shell, MsgBox& msgBox);
};

/// Shows the about box modally in front of `owner` and comes back at once; the box goes when it is closed.
void showAbout(QWidget* owner, const std::filesystem::path& programFile, Shell& shell, MsgBox& msgBox);

}  // namespace korvex
