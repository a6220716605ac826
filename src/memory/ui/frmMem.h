#pragma once

#include <functional>

#include "memory/MemoryManager.h"
#include "terminal/ToolWindows.h"
#include "windows/ui/ToolWindow.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;

namespace korvex {

class ColorButton;
class DigitEdit;

/// "Memory Channel Handler": one channel as a form.
class frmMem : public ToolWindow {
    Q_OBJECT

public:
    frmMem(MemoryManager& memory, CatLink& link, ToolWindows& windows, SettingsStore& settings);

protected:
    bool closeBox() override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void makeMenu();
    QAction* entry(QMenu* menu, const char* name, const QString& caption, std::function<void()> run);
    void makeForm();
    QWidget* makePortFrame();
    QWidget* makeRadioFrame();
    QWidget* makeChannelFrame();
    QGroupBox* makeClarifierFrame();
    QGroupBox* makeToneFrame();
    QGroupBox* makeRemarkFrame();
    QLabel* makeHint();
    void makeStatusBar();
    void wirePort();
    void wireText();
    void Text1_Change();

    QComboBox* makeCombo(const char* name, const QString& meaning);
    QComboBox* makeFieldCombo(const char* name, const QString& meaning, MemoryField field);
    DigitEdit* makeDigits(const char* name, const QString& meaning, DigitBox& box);

    MemoryManager& m_memory;
    MemoryEditor& m_editor;
    CatLink& m_link;
    ToolWindows& m_windows;
    QComboBox* channelPlace = nullptr;
    ColorButton* cmd2 = nullptr;
    ColorButton* cmd3 = nullptr;
    QLineEdit* remarkText = nullptr;
    QLineEdit* writeCommand = nullptr;
    QList<QAction*> m_radioEntries;  // enabled exactly while the port is open
    Connections m_connections;
};

}  // namespace korvex
