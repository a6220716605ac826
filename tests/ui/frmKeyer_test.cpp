#include "keyer/ui/frmKeyer.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <memory>

#include "fakes/ScriptedDevice.h"
#include "keyer/KeyerBench.h"
#include "keyer/ui/frmInfo.h"
#include "platform/qtwidgets/FlexGridView.h"
#include "ui/Widgets.h"

namespace korvex {
namespace {

struct frmKeyerTest : testing::Test {
    frmKeyerTest() {
        bench.ports.plug(1);
        makeForm();
    }
    void makeForm() {
        form = std::make_unique<frmKeyer>(bench.window, bench.program.link, bench.settings);
        form->show();
        view = control<FlexGridView>(*form, "MSFlexGrid_k1");
        view->setFocus();
        QApplication::processEvents();
    }
    QAction* action(const char* name) const { return control<QAction>(*form, name); }
    void choose(const char* name) const { korvex::choose(*form, name); }
    void key(int code, const QString& text = {}) const {
        QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier, text);
        QApplication::sendEvent(form->focusWidget(), &event);
    }
    QLineEdit* box() const { return control<QLineEdit>(*form, "tbFgEdit1"); }

    KeyerBench<fakes::ScriptedPorts> bench;
    std::unique_ptr<frmKeyer> form;
    FlexGridView* view = nullptr;
};

TEST_F(frmKeyerTest, IsAsLargeAsItsGridAsksAndStaysWhereItWas) {
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Keyer Memory"));
    EXPECT_EQ(view->width(), (700 + 8350 + 950 + 90 + 7) / 15);
    EXPECT_EQ(form->size() - view->size(), QSize(400 + 7, 1500) / 15);
    EXPECT_GE(view->height(), view->sizeOfWholeGrid().height());
    EXPECT_EQ(form->pos(), QPoint(90, 100));  // whole on a screen of 800 pixels
    form->move(150, 90);
    choose("mnu_clWindow");
    EXPECT_EQ(bench.settings.values["Settings/KeyerLeft"], "2250");
    EXPECT_EQ(bench.settings.values["Settings/KeyerTop"], "1350");
    EXPECT_EQ(bench.settings.values.count("Settings/KeyerWidth"), 0U);
    makeForm();
    EXPECT_EQ(form->pos(), QPoint(150, 90));
}

TEST_F(frmKeyerTest, RadioEntriesFollowThePortAndFilesDoNot) {
    EXPECT_FALSE(action("mnu_readKeyer")->isEnabled());
    EXPECT_FALSE(action("mnu_WriteKeyer")->isEnabled());
    EXPECT_TRUE(action("mnu_LoadKeyer")->isEnabled());
    bench.ports.plug(1).answer = [](std::string_view wire) { return std::string(wire.substr(0, 3)) + "TU;"; };
    bench.openPort();
    ASSERT_TRUE(action("mnu_WriteKeyer")->isEnabled());
    choose("mnu_readKeyer");
    bench.clock.advance(3000);
    EXPECT_EQ(view->model()->index(4, 0).data().toString(), QStringLiteral("TU"));
    EXPECT_EQ(view->model()->index(4, 1).data().toString(), QStringLiteral("2"));
}

TEST_F(frmKeyerTest, WhatIsStillBeingTypedIsSavedSentAndKept) {
    key(Qt::Key_C, QStringLiteral("c"));
    key(Qt::Key_Q, QStringLiteral("q"));
    ASSERT_TRUE(box()->isVisible());
    EXPECT_EQ(bench.count(1), "2");
    key(Qt::Key_Semicolon, QStringLiteral(";"));
    EXPECT_EQ(box()->text(), QStringLiteral("CQ"));
    EXPECT_NE(control<QLabel>(*form, "hint")->text(), QString());

    const std::string file = bench.folder.file("a.kem");
    bench.fileDialog.choose(file);
    choose("mnu_SaveKeyer");
    EXPECT_NE(fakes::fileContent(file).find("|KM1;|CQ|2|"), std::string::npos);
    EXPECT_FALSE(box()->isVisible());
    key(Qt::Key_Tab, QStringLiteral("\t"));
    EXPECT_EQ(form->focusWidget(), control<QLabel>(*form, "hint"));
    view->setFocus();

    bench.openPort();
    key(Qt::Key_T, QStringLiteral("t"));
    choose("mnu_WriteKeyer");
    bench.clock.advance(450);
    EXPECT_EQ(bench.ports.plug(1).writes.back().text, "KM1T;");

    bool normal = false;
    const Connection connection = bench.window.buttonBackToNormal.connect([&] { normal = true; });
    key(Qt::Key_K, QStringLiteral("k"));
    form->close();
    EXPECT_FALSE(normal);
    EXPECT_EQ(bench.text(1), "K");
    form->show();
    view->setFocus();
    key(Qt::Key_L, QStringLiteral("l"));
    choose("mnu_clWindow");
    EXPECT_TRUE(normal);
    EXPECT_EQ(bench.text(1), "L");
    EXPECT_FALSE(form->isVisible());
}

TEST_F(frmKeyerTest, InfoShowsItsLines) {
    choose("mnu_Info");
    choose("mnu_Info");
    const auto infos = form->findChildren<frmInfo*>();
    ASSERT_EQ(infos.size(), 1);
    const QStringList lines = infos.first()->findChild<QPlainTextEdit*>()->toPlainText().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 9);
    EXPECT_EQ(lines[4], QStringLiteral(" Set menu 20 to 24 to \" tyP1\""));
    EXPECT_EQ(lines[6], QStringLiteral("Cat commands = \"EX0200;\"   \"EX0210;\"  \"EX0220;\"  "));
    korvex::choose(*infos.first(), "mnu_close");
    EXPECT_FALSE(infos.first()->isVisible());
}

}  // namespace
}  // namespace korvex
