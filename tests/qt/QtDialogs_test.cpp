#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>

#include "platform/qtwidgets/QtFileDialog.h"
#include "platform/qtwidgets/QtMsgBox.h"

namespace korvex {
namespace {

/// Acts on the dialogs that come up, one after the other, however long they take to.
template <class Dialog>
void whenUp(std::function<void(Dialog&)> act) {
    auto* look = new QTimer(qApp);
    QObject::connect(look, &QTimer::timeout, qApp, [look, act] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible()) return;
        look->stop();
        look->deleteLater();
        act(*dialog);
    });
    look->start(20);
}

QPushButton* button(QMessageBox& box, const char* caption) {
    for (auto* candidate : box.findChildren<QPushButton*>()) {
        if (candidate->text().remove(QLatin1Char('&')) == QLatin1String(caption)) return candidate;
    }
    return nullptr;
}

TEST(QtMsgBox, ShowsTextsAsTheyAre) {
    whenUp<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), QStringLiteral("<b>Daten</b> können\nnicht "));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Korvex"));
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(QtMsgBox().show({"<b>Daten</b> können\r\nnicht ", {}, MsgIcon::Exclamation}), MsgAnswer::Ok);
}

TEST(QtMsgBox, EveryButtonHasItsAnswerAndEscapeChangesLeast) {
    struct Case {
        MsgButtons buttons;
        std::vector<std::pair<const char*, MsgAnswer>> captions;
        MsgAnswer escape;
        std::size_t enter = 0;
    };
    const std::vector<Case> cases = {
        {MsgButtons::YesNo, {{"Yes", MsgAnswer::Yes}, {"No", MsgAnswer::No}}, MsgAnswer::No},
        {MsgButtons::YesNoCareful, {{"Yes", MsgAnswer::Yes}, {"No", MsgAnswer::No}}, MsgAnswer::No, 1},
        {MsgButtons::AbortRetryIgnore,
         {{"Abort", MsgAnswer::Abort}, {"Retry", MsgAnswer::Retry}, {"Ignore", MsgAnswer::Ignore}},
         MsgAnswer::Abort},
        {MsgButtons::CancelTryAgainContinue,
         {{"Cancel", MsgAnswer::Cancel}, {"Try Again", MsgAnswer::TryAgain}, {"Continue", MsgAnswer::Continue}},
         MsgAnswer::Cancel}};
    for (const auto& [buttons, captions, escape, enter] : cases) {
        int left = -1;
        for (const auto& [caption, answer] : captions) {
            whenUp<QMessageBox>([&, name = caption](QMessageBox& box) {
                auto* found = button(box, name);
                ASSERT_NE(found, nullptr) << name;
                EXPECT_GT(found->x(), left) << "they stand in this order";
                left = found->x();
                found->click();
            });
            EXPECT_EQ(QtMsgBox().show({"?", "Title", MsgIcon::Question, buttons}), answer);
        }
        whenUp<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(QtMsgBox().show({"?", {}, MsgIcon::Question, buttons}), escape);
        whenUp<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        EXPECT_EQ(QtMsgBox().show({"?", {}, MsgIcon::Question, buttons}), captions[enter].second);
    }
}

class QtFileDialogTest : public ::testing::Test {
protected:
    FileDialogRequest request(FileDialogRequest::Mode mode, const std::string& start) {
        return {mode, "Save Menu", "Flat File (*.mnu)|*.mnu|All Files (*.*)|*.*", start, "mnu"};
    }
    static void type(QFileDialog& dialog, const QString& name) {
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
        QMetaObject::invokeMethod(&dialog, "accept");
    }
    /// The dialog may still be reading its folder, and forget the name when that comes.
    static void typeUntilTaken(QFileDialog& dialog, const QString& name) {
        type(dialog, name);
        QTimer::singleShot(500, &dialog, [&dialog, name] {
            if (dialog.isVisible()) typeUntilTaken(dialog, name);
        });
    }
    std::string path(const char* name) { return folder.filePath(QLatin1String(name)).toStdString(); }

    QTemporaryDir folder;
};

TEST_F(QtFileDialogTest, AsksBeforeItReplacesWhatTheExtensionLeadsTo) {
    std::ofstream(path("home.mnu")) << "EX0011;";
    std::vector<std::string> questions;
    whenUp<QFileDialog>([&](QFileDialog& dialog) {
        const auto* types = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        EXPECT_EQ(types->itemText(1), QStringLiteral("All Files (*.*)"));
        EXPECT_EQ(types->currentText(), QStringLiteral("Flat File (*.mnu)"));
        EXPECT_EQ(dialog.nameFilters().at(1), QStringLiteral("All Files (*.*) (*)"));  // files without a dot, too
        whenUp<QMessageBox>([&](QMessageBox& box) {
            questions.push_back(box.text().toStdString());
            whenUp<QFileDialog>([](QFileDialog& again) { typeUntilTaken(again, QStringLiteral("other")); });
            button(box, "No")->click();
        });
        type(dialog, QStringLiteral("home"));
    });
    EXPECT_EQ(QtFileDialog().show(request(FileDialogRequest::Mode::Save, folder.path().toStdString())),
              path("other.mnu"));
    EXPECT_EQ(questions, std::vector<std::string>{"home.mnu already exists.\nDo you want to replace it?"});
}

TEST_F(QtFileDialogTest, ChoosesAFolder) {
    std::ofstream(path("home.mnu")) << "EX0011;";
    std::filesystem::create_directory(path("backups"));
    FileDialogRequest asked{FileDialogRequest::Mode::Folder, "Folder", "", path("backups/gone"), ""};
    whenUp<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path().toStdString(), path("backups"));
        type(dialog, folder.path());
    });
    EXPECT_EQ(QtFileDialog().show(asked), folder.path().toStdString());
    asked.start = folder.path().toStdString();
    whenUp<QFileDialog>([](QFileDialog& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); });
    EXPECT_EQ(QtFileDialog().show(asked), folder.path().toStdString()) << "the one that is shown";
}

TEST_F(QtFileDialogTest, OpensWhereItWasAndCancels) {
    std::ofstream(path("home.mnu")) << "EX0011;";
    whenUp<QFileDialog>([](QFileDialog& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); });
    EXPECT_EQ(QtFileDialog().show(request(FileDialogRequest::Mode::Open, path("home.mnu"))), path("home.mnu"));
    whenUp<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path(), folder.path());
        dialog.reject();
    });
    EXPECT_EQ(QtFileDialog().show(request(FileDialogRequest::Mode::Open, path("gone/x.mnu"))), std::nullopt);

    // Whoever asked tells of a file that is not there; a name may come without its extension, and a file may have none.
    std::ofstream(path("bare")) << "EX0011;";
    for (const auto& [typed, chosen] : {std::pair{"gone.mnu", "gone.mnu"}, {"home", "home.mnu"}, {"bare", "bare"}}) {
        whenUp<QFileDialog>([name = typed](QFileDialog& dialog) { type(dialog, QLatin1String(name)); });
        EXPECT_EQ(QtFileDialog().show(request(FileDialogRequest::Mode::Open, folder.path().toStdString())),
                  path(chosen));
    }
}

}  // namespace
}  // namespace korvex
