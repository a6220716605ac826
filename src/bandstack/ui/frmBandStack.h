#pragma once

#include <functional>

#include "base/Signal.h"
#include "windows/ui/ToolWindow.h"

class QAction;
class QLabel;
class QLineEdit;
class QMenu;

namespace korvex {

class BandStackWindow;
class CatLink;
class FlexGridView;

/// "Band Stack Registers": the grid of the 33 registers, its menu, and the file it was kept in.
class frmBandStack : public ToolWindow {
    Q_OBJECT

public:
    frmBandStack(BandStackWindow& logic, CatLink& link, SettingsStore& settings);

protected:
    bool closeBox() override;

private:
    QAction* entry(QMenu* menu, const char* name, const char* caption, std::function<void()> run);
    void makeMenu(CatLink& link);
    void makePartMenu(CatLink& link);
    void makeComparisonMenu(CatLink& link);
    void nameParts(QAction* band, QAction* oneRegister);
    void makeBody();
    QWidget* makeFields();
    void makeStatusBar(CatLink& link);
    void fitHeight();

    BandStackWindow& m_logic;
    FlexGridView* grid = nullptr;
    QLabel* loadError = nullptr;
    QLineEdit* cellWritten = nullptr;
    Connections m_connections;
};

}  // namespace korvex
