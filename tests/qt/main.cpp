#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

/// A test that ended the program leaves an application in which no event loop starts any more; the next one begins
/// anew.
class FreshEventLoop : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        QTimer::singleShot(0, [] { QApplication::quit(); });
        QApplication::exec();
    }
};

}  // namespace

/// Windows without a screen, and a home of their own: no test touches the settings of the person who runs it.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toUtf8());
    qputenv("XDG_DATA_HOME", home.filePath(QStringLiteral("share")).toUtf8());

    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new FreshEventLoop);
    return RUN_ALL_TESTS();
}
