#include "eq/ui/frmEQ_Set.h"

#include <QSlider>

#include "eq/EqWindow.h"
#include "fakes/FakeDialogs.h"
#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"
#include "fakes/SimulatorProcess.h"
#include "fakes/VirtualClock.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtSerialPorts.h"
#include "ui/Widgets.h"

namespace korvex {
namespace {

struct EqFormTest : ::testing::Test {
    template <class T>
    T* find(const char* name) {
        return control<T>(window, name);
    }
    QSlider* slider(int item) { return window.findChild<QSlider*>(QStringLiteral("VScroll1_%1").arg(item)); }
    std::string label(const char* name) { return find<QLabel>(name)->text().toStdString(); }

    fakes::VirtualClock clock;
    fakes::ScriptedPorts ports{clock};
    fakes::ScriptedLine& line = ports[1];
    fakes::FakeMsgBox msgBox;
    fakes::FakeSettings settings;
    fakes::FakeFileDialog fileDialog;
    fakes::TemporaryFolder folder;
    EqWindow logic{ports, clock, {settings, fileDialog, msgBox, folder.path()}};
    frmEQ_Set window{logic, settings};
};

TEST_F(EqFormTest, SlidersSendEveryValueTheyGiveAndFollowTheRadio) {
    window.show();
    click(window, "imgNotConnected");
    ASSERT_TRUE(logic.isPortOpen());
    line.feed("EX12501;EX126+01;");
    line.forgetWrites();
    for (int item = 0; item < 9; ++item) EXPECT_EQ(slider(item)->isEnabled(), item < 2) << item;
    slider(1)->setSliderDown(true);
    for (const int value : {-1, -2, -3}) slider(1)->setSliderPosition(value);
    slider(1)->setSliderDown(false);
    EXPECT_EQ(line.story(), "0 EX126-01;EX126;|0 EX126-02;EX126;|0 EX126-03;EX126;");
    EXPECT_EQ(label("Label1_1"), "-03");
    slider(0)->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(label("Label1_0"), "200");

    line.forgetWrites();
    line.feed("EX13117;");
    EXPECT_EQ(slider(6)->value(), 3100);
    EXPECT_EQ(line.story(), "0 EX13117;EX131;");  // once, not again by the slider's own change
}

TEST_F(EqFormTest, LooksLikeTheEqualizerThatItIs) {
    window.show();
    for (std::size_t item = 0; item < eqItemCount; ++item) {
        const auto* control = slider(static_cast<int>(item));
        EXPECT_EQ(control->minimum(), eqItems[item].lowest);
        EXPECT_EQ(control->maximum(), eqItems[item].highest);
        EXPECT_EQ(control->orientation(), Qt::Vertical);
        EXPECT_FALSE(control->invertedAppearance());
        EXPECT_FALSE(control->accessibleName().isEmpty());
        EXPECT_EQ(label(("Label1_" + std::to_string(item)).c_str()), eqItems[item].initialDisplay);
    }
    EXPECT_EQ(slider(6)->accessibleName().toStdString(), "High center frequency");
    EXPECT_EQ(window.size(), QSize(433, 567));
    EXPECT_LE(window.minimumSizeHint().width(), 433);
    EXPECT_LE(window.minimumSizeHint().height(), 5500 / 15);

    // Right edge of the processor's button: half the client width and 1000 twips.
    const auto* button = find<QPushButton>("Command1_0");
    const int right = button->mapTo(&window, QPoint(button->width(), 0)).x();
    EXPECT_NEAR(right, 433 / 2.0 + 67, 1);
    window.resize(600, 600);
    const auto* frame = find<QFrame>("Frame8");
    EXPECT_NEAR(frame->mapTo(&window, QPoint()).x(), 600 - frame->width() * 1.5, 1);
}

TEST_F(EqFormTest, IndicatorsFollowThePortAndTheButtonTheProcessor) {
    window.show();
    EXPECT_EQ(label("Label5"), "click to open");
    choose(window, "openPort");
    EXPECT_TRUE(find<QAction>("comop")->isChecked());
    EXPECT_TRUE(find<QToolButton>("imgConnected")->isVisible());
    EXPECT_FALSE(find<QToolButton>("imgNotConnected")->isVisible());
    EXPECT_EQ(label("Label6"), " Reading EQ Settings of FT-2000");
    EXPECT_EQ(label("Settings"), "Settings: Port 1, 4800,n,8,2");

    auto* off = find<QPushButton>("Command1_0");
    auto* on = find<QPushButton>("Command1_1");
    EXPECT_TRUE(off->isVisible() && !on->isVisible());
    click(window, "Command1_0");
    EXPECT_TRUE(on->isVisible() && !off->isVisible());
    EXPECT_EQ(on->palette().color(QPalette::Button), QColor(0, 255, 0));
    click(window, "Command1_1");
    EXPECT_TRUE(off->isVisible() && !on->isVisible());

    window.close();
    EXPECT_FALSE(logic.isPortOpen());
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(settings.values["Settings/frmEQ_SetHeight"], "8500");
}

/// A real window, real time, a real serial device: the simulated radio on a pseudo terminal.
TEST(WindowsOnAPty, ASliderThatIsMovedMovesTheRadio) {
    const fakes::TemporaryFolder folder;
    const std::string state = folder.file("radio.txt");
    const fakes::SimulatorProcess radio(BINARY_DIR "/ft2000sim", {"--state", state});
    QtClock clock;
    fakes::FakeSettings settings;
    fakes::FakeMsgBox msgBox;
    QtSerialPorts ports(settings, {{1, radio.device()}});
    fakes::FakeFileDialog fileDialog;
    EqWindow logic(ports, clock, {settings, fileDialog, msgBox, folder.path()});
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
