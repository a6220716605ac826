#include "platform/qt/QtChildProgram.h"

#include <QEventLoop>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

namespace korvex {

namespace {

constexpr int bySignal = 128;

/// What it prints, as it prints it, up to the end or to one of the limits.
class Run {
public:
    explicit Run(const ChildProgramOrder& order) : m_order(order) {
        m_process.setStandardInputFile(QProcess::nullDevice());
        const auto take = [this] { takeOutput(); };
        QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &m_loop, take);
        QObject::connect(&m_process, &QProcess::readyReadStandardError, &m_loop, take);
        QObject::connect(&m_process, &QProcess::finished, &m_loop, &QEventLoop::quit);
        QObject::connect(&m_process, &QProcess::errorOccurred, &m_loop, [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                stop("could not be started: " + m_process.errorString().toStdString());
        });
        m_limit.setSingleShot(true);
        QObject::connect(&m_limit, &QTimer::timeout, &m_loop, [this] { stop("took too long and was ended"); });
    }

    Result<ChildProgramEnd> toTheEnd(const QString& file) {
        QStringList arguments;
        for (const auto& argument : m_order.arguments) arguments.append(QString::fromStdString(argument));
        m_limit.start(m_order.mostMs);
        m_process.start(file, arguments);
        if (m_why.empty()) m_loop.exec(QEventLoop::ExcludeUserInputEvents);
        takeOutput();
        if (!m_why.empty()) return RuntimeError{errors::DeviceIo, m_order.program + " " + m_why};
        const bool crashed = m_process.exitStatus() == QProcess::CrashExit;
        m_end.code = m_process.exitCode() + (crashed ? bySignal : 0);
        return std::move(m_end);
    }

private:
    void takeOutput() {
        m_end.output += m_process.readAllStandardOutput().toStdString();
        m_end.errors += m_process.readAllStandardError().toStdString();
        if (m_end.output.size() + m_end.errors.size() > m_order.mostBytes) stop("printed too much");
    }
    void stop(const std::string& why) {
        if (!m_why.empty()) return;
        m_why = why;
        m_process.kill();
        m_process.waitForFinished();
        m_loop.quit();
    }

    const ChildProgramOrder& m_order;
    ChildProgramEnd m_end;
    std::string m_why;
    QEventLoop m_loop;
    QTimer m_limit;
    QProcess m_process;  // the first to go: it ends its program
};

}  // namespace

Result<ChildProgramEnd> runChildProgram(const ChildProgramOrder& order) {
    const QString file = QStandardPaths::findExecutable(QString::fromStdString(order.program));
    if (file.isEmpty()) return RuntimeError{errors::FileNotFound, order.program + " is not installed"};
    return Run(order).toTheEnd(file);
}

}  // namespace korvex
