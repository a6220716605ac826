#pragma once

#include <QMainWindow>
#include <array>

#include "base/Signal.h"
#include "eq/EqItems.h"
#include "windows/ui/ToolWindow.h"

class QAction;
class QFrame;
class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;
class QStackedLayout;
class QToolButton;

namespace korvex {

class EqCurveView;
class EqSlider;
class EqWindow;
class PortSwitch;

/// "FT-2000 Equalizer Settings": nine sliders, the speech processor's button and the switch of the window's own port.
class frmEQ_Set : public ToolWindow {
    Q_OBJECT

public:
    frmEQ_Set(EqWindow& logic, SettingsStore& settings);

protected:
    bool closeBox() override;

private:
    void buildMenu();
    void buildEqualizerMenu();
    void buildToolBar();
    void buildStatusBar();
    void buildBody();
    QGroupBox* makeBand(std::size_t band);
    void makeItem(std::size_t item, QGridLayout* grid, int column);
    void buildStrip();
    QToolButton* makeImage(const char* name, const char* file, const char* accessibleName);
    QPushButton* makeProcessorButton(int index, const char* caption);
    void placeStrip();
    bool eventFilter(QObject* watched, QEvent* event) override;

    void wire();
    void wireItem(std::size_t item);
    void wireCurve();
    void showCurve();
    void showUnit(std::size_t item);
    void showConnected(bool connected);
    void showProcessor(bool on);

    EqWindow& m_logic;
    PortSwitch* m_portSwitch;
    std::array<EqSlider*, eqItemCount> VScroll1{};
    std::array<QLabel*, eqItemCount> Label1{};
    std::array<QLabel*, eqItemCount> m_units{};
    std::array<QWidget*, eqItemCount> m_scales{};
    EqCurveView* m_curve = nullptr;
    QPushButton* cmdReadAgain = nullptr;
    QList<QAction*> m_setActions;  // of a set that is known
    QAction* m_readAgain = nullptr;
    std::array<QPushButton*, 2> Command1{};
    QWidget* m_strip = nullptr;  // below the sliders; its controls follow the window's width
    QFrame* Frame7 = nullptr;
    QFrame* Frame8 = nullptr;
    QStackedLayout* m_images = nullptr;
    QToolButton* imgConnected = nullptr;
    QToolButton* imgNotConnected = nullptr;
    QLabel* portHint = nullptr;
    QLabel* Label6 = nullptr;
    Connections m_connections;
};

}  // namespace korvex
