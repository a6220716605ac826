#include "platform/qt/QtClock.h"

#include <QEventLoop>
#include <QTimer>
#include <chrono>

namespace korvex {

namespace {

/// A precise QTimer keeps its pace from deadline to deadline and rounds up, never down.
class QtTimer : public Timer {
public:
    QtTimer() {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { tick.emit(); });
    }

protected:
    void arm(int ms) override { m_timer.start(ms); }
    void disarm() override { m_timer.stop(); }

private:
    QTimer m_timer;
};

}  // namespace

std::unique_ptr<Timer> QtClock::makeTimer() {
    return std::make_unique<QtTimer>();
}

std::int64_t QtClock::now() const {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void QtClock::letEventsRun(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

}  // namespace korvex
