#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
#include <sys/resource.h>

namespace korvex::bench {

/// CPU time of this process, user and system, in ms.
inline double cpuMs() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto ms = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3;
    };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
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
