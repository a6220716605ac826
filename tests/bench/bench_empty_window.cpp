// The yardstick of start-up: what an empty window of the toolkit costs.

#include <QMainWindow>

#include "Measure.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(411, 515);
    korvex::bench::WhenSettled settled([] { QApplication::quit(); });
    window.show();
    return QApplication::exec();
}
