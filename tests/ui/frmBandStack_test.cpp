#include "bandstack/ui/frmBandStack.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <gtest/gtest.h>
#include <string>

#include "bandstack/BandStackWindow.h"
#include "fakes/ProgramBench.h"
#include "platform/qtwidgets/FlexGridView.h"
#include "radio/SimulatedPorts.h"

namespace korvex {
namespace {

struct BandStackFormTest : testing::Test {
    template <class T>
    T* find(const char* name) {
        auto* found = form.findChild<T*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    /// A picture for whoever works on the window: KORVEX_PICTURES names the folder.
    void picture(const char* name) {
        QApplication::processEvents();
        const auto folder = qEnvironmentVariable("KORVEX_PICTURES");
        if (!folder.isEmpty()) form.grab().save(folder + QLatin1Char('/') + QLatin1String(name));
    }

    fakes::ProgramBench<SimulatedPorts> bench;
    BandStackWindow logic{bench.program.link, bench.clock, bench.program.desk};
    frmBandStack form{logic, bench.program.link, bench.settings};
    FlexGridView* grid = find<FlexGridView>("FlexGrid1");
};

TEST_F(BandStackFormTest, ReadsTheRadioFromItsMenuAndShowsItInTheGrid) {
    form.show();
    EXPECT_FALSE(find<QAction>("mnu_readBandStack")->isEnabled());
    bench.openPort();
    EXPECT_EQ(find<QLabel>("portinfo")->text().toStdString(), "RS232 open");
    bench.fileDialog.choose(bench.folder.file("radio.bsr"));
    find<QAction>("mnu_readBandStack")->trigger();
    QApplication::processEvents();
    EXPECT_TRUE(bench.clock.advanceUntil([&] { return !logic.reader().running() && !bench.program.progress.visible; },
                                         200'000));
    EXPECT_EQ(find<QLabel>("Dateipath")->text().toStdString(), bench.folder.file("radio.bsr"));
    picture("bandstack.png");

    const auto* shown = grid->model();
    EXPECT_EQ(shown->headerData(16, Qt::Horizontal).toString().toStdString(), "20 m / 2\nBS05;");
    EXPECT_EQ(shown->headerData(9, Qt::Vertical).toString().toStdString(), "FA;  VFO A frequency");
    const QString frequency = shown->index(9, 16).data().toString();
    EXPECT_EQ(frequency.count(QLatin1Char('.')), 2) << frequency.toStdString();
    EXPECT_TRUE(shown->index(9, 16).data(Qt::ToolTipRole).toString().startsWith(QLatin1String("FA1")));
    logic.stack().grid.setCurrent(10, 17);
    EXPECT_EQ(find<QAction>("mnu_writeBand")->text().toStdString(), "Write 20 m alone to FT-2000");

    // The labels stay in sight while the cells scroll under them.
    EXPECT_TRUE(grid->isRowVisible(1));
    logic.stack().grid.setCurrent(24, 33);
    grid->scrollToCurrent();
    EXPECT_FALSE(grid->cellGeometry(24, 33).isEmpty());
    EXPECT_FALSE(grid->cellGeometry(0, 33).isEmpty());
    EXPECT_FALSE(grid->cellGeometry(24, 0).isEmpty());
    picture("bandstack-end.png");

    find<QAction>("mnu_writeBandStack")->trigger();
    QApplication::processEvents();
    bench.clock.advance(150);
    EXPECT_EQ(find<QLineEdit>("Text3")->text().toStdString(), logic.stack().cells().at(1, 1));
}

TEST_F(BandStackFormTest, ItsHeightFollowsItsRowsAndItsGridItsWidth) {
    form.show();
    QApplication::processEvents();
    EXPECT_EQ(form.width(), form.screen()->availableGeometry().width() - 16) << "new: the screen is the limit";
    EXPECT_EQ(grid->width(), form.width() - 27);
    EXPECT_EQ(form.height(), 24 * grid->rowHeight(0) + 7 + 93);
    form.resize(700, 400);
    QApplication::processEvents();
    EXPECT_EQ(grid->width(), 700 - 27);
    const int height = grid->height();
    form.resize(700, 900);
    QApplication::processEvents();
    EXPECT_EQ(grid->height(), height + 500);
    find<QAction>("mnu_closeWindow")->trigger();
    QApplication::processEvents();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(bench.settings.values["Settings/BandStackWidth"], "10500");
    EXPECT_EQ(bench.settings.values.count("Settings/BandStackHeight"), 0U);
    EXPECT_EQ(frmBandStack(logic, bench.program.link, bench.settings).width(), 700) << "placed: as it was left";
}

TEST_F(BandStackFormTest, ACancelledLoadShowsZeroOnYellowAndNoiseHoldsNothingUp) {
    form.show();
    bench.fileDialog.cancel();
    find<QAction>("mnu_loadDatafromHD")->trigger();
    QApplication::processEvents();
    EXPECT_EQ(find<QLabel>("Label2")->text().toStdString(), "0");
    picture("bandstack-cancelled.png");
    EXPECT_EQ(find<QLabel>("Label2")->grab().toImage().pixelColor(3, 5), QColor(Qt::yellow));

    for (int column = 1; column < 3; ++column) logic.stack().show(1, column, std::string(1 << 20, 'W'));
    QElapsedTimer watch;
    watch.start();
    picture("bandstack-noise.png");
    form.grab();
    EXPECT_LT(watch.elapsed(), 1000);
}

}  // namespace
}  // namespace korvex
