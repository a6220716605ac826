#include <QSlider>

#include "eq/EqWindow.h"
#include "eq/ui/frmEQ_Set.h"
#include "fakes/ProgramBench.h"
#include "fakes/SimulatorProcess.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtSerialPorts.h"
#include "ui/Widgets.h"

namespace korvex {
namespace {

/// A real window, real time, a real serial device: the simulated radio on a pseudo terminal.
TEST(WindowsOnAPty, ASliderThatIsMovedMovesTheRadio) {
    const fakes::TemporaryFolder folder;
    const std::string state = folder.file("radio.txt");
    const fakes::SimulatorProcess radio(BINARY_DIR "/ft2000sim", {"--state", state});
    QtClock clock;
    fakes::FakeSettings settings;
    fakes::FakeMsgBox msgBox;
    QtSerialPorts ports(settings, {{1, radio.device()}});
    EqWindow logic(ports, clock, msgBox);
    frmEQ_Set form(logic, settings);
    const auto radioHas = [&state](const std::string& line) {
        return QTest::qWaitFor([&] { return fakes::fileContent(state).find(line + "\n") != std::string::npos; });
    };
    const auto slider = [&](int item) { return control<QSlider>(form, ("VScroll1_" + std::to_string(item)).c_str()); };
    form.show();
    ASSERT_TRUE(radioHas("menu 125 = 03"));
    click(form, "imgNotConnected");
    EXPECT_TRUE(QTest::qWaitFor([&] { return slider(0)->value() == 300; }));  // the radio's own

    EXPECT_TRUE(QTest::qWaitFor([&] { return slider(7)->isEnabled() && slider(3)->isEnabled(); }));  // as far as read
    for (const int value : {-18, -17, -16}) slider(7)->setSliderPosition(value);
    slider(3)->setFocus();
    QTest::keyClick(slider(3), Qt::Key_End);
    EXPECT_TRUE(radioHas("menu 132 = -16"));
    EXPECT_TRUE(radioHas("menu 128 = 09"));
    form.close();
    EXPECT_FALSE(logic.isPortOpen());
}

}  // namespace
}  // namespace korvex
