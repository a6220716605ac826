#pragma once

#include <array>
#include <functional>

#include "app/StartWindow.h"
#include "windows/ui/ToolWindow.h"

namespace korvex {

class ColorButton;
class SvgPicture;

/// The start window: the radio's picture and six buttons, one for each tool.
class frmUtilities : public ToolWindow {
    Q_OBJECT

public:
    /// `showAbout` shows the about box in front of the window it is given.
    frmUtilities(StartWindow& logic, SettingsStore& settings, std::function<void(QWidget*)> showAbout);

protected:
    bool closeBox() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeMenus();
    void makeButton(int tool);
    void makeFace();
    /// The picture in the middle, the buttons under it; gives back how much height that takes.
    int layOut();

    StartWindow& m_logic;
    std::function<void(QWidget*)> m_showAbout;
    QWidget* m_face = nullptr;
    SvgPicture* Picture1 = nullptr;
    std::array<ColorButton*, StartWindow::toolCount> Command1{};
    Connections m_connections;
};

}  // namespace korvex
