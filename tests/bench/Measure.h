#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <functional>
#include <string>

namespace korvex::bench {

/// CPU time of this process, user and system, in ms.
inline double cpuMs() {
    return static_cast<double>(std::clock()) * 1e3 / CLOCKS_PER_SEC;
}

/// The number behind a name in a file of /proc, for example "Pss:" in /proc/self/smaps_rollup (kB).
inline long procNumber(const std::string& file, const std::string& name) {
    std::ifstream stream(file);
    std::string line;
    while (std::getline(stream, line)) {
        if (line.starts_with(name)) return std::stol(line.substr(name.size()));
    }
    return -1;
}

inline double pssMiB() {
    return static_cast<double>(procNumber("/proc/self/smaps_rollup", "Pss:")) / 1024.0;
}

/// Calls back when the first window has been painted and nothing more waits in the event loop.
class WhenSettled : public QObject {
public:
    explicit WhenSettled(std::function<void()> settled) : m_settled(std::move(settled)) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && !m_painted) {
            m_painted = true;
            QTimer::singleShot(0, this, [this] { QTimer::singleShot(0, this, m_settled); });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_settled;
    bool m_painted = false;
};

}  // namespace korvex::bench
