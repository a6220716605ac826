#include "platform/qt/QtSerialDevice.h"

#include <QCoreApplication>
#include <cstdlib>
#include <filesystem>

#include "platform/PortProblem.h"

namespace korvex {

namespace {

constexpr int modemPollMs = 500;
constexpr int mostErrors = 20;  // without anything received in between

std::string resolved(const std::string& device) {
    std::error_code error;
    const auto real = std::filesystem::canonical(device, error);
    return error ? device : real.string();
}

}  // namespace

QtSerialDevice::QtSerialDevice(std::string device) : m_name(std::move(device)), m_device(m_name) {
    m_modemPoll.setTimerType(Qt::CoarseTimer);
    QObject::connect(&m_modemPoll, &QTimer::timeout, [this] { pollModemLines(); });
}

QtSerialDevice::~QtSerialDevice() {
    QtSerialDevice::close();
}

/// Runs `work` from the event loop, unless the device is closed or destroyed before. Nested event loops count too:
/// the library itself would hold back further data while a handler is in a dialog.
template <class Work>
void QtSerialDevice::later(Work work) {
    auto guarded = [opening = std::weak_ptr(m_opening), work] {
        if (!opening.expired()) work();
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), guarded, Qt::QueuedConnection);
}

Failure QtSerialDevice::open(const LineSettings& settings, Handshaking handshaking) {
    close();
    m_device = resolved(m_name);
    if (auto problem = portproblem::beforeOpening(m_device)) return problem;
    auto failure = openLocked();
    if (!failure) failure = prepareLine(settings, handshaking);
    if (failure) {
        close();
        return failure;
    }
    m_opening = std::make_shared<const int>();
    m_receiveTold = false;
    m_errorsInARow = 0;
    QObject::connect(&m_port, &QSerialPort::readyRead, &m_port, [this] { onReadyRead(); });
    QObject::connect(&m_port, &QSerialPort::errorOccurred, &m_port, [this](auto error) { onError(error); });
    return {};
}

Failure QtSerialDevice::openLocked() {
    m_port.setPortName(QString::fromStdString(m_device));
    if (!m_port.open(QIODevice::ReadWrite)) return openFailure();
    tty::setLine(m_port.handle(), tty::OutputLine::Rts, false);
    tty::setLine(m_port.handle(), tty::OutputLine::Dtr, false);
    if (!tty::lock(m_port.handle())) return portproblem::held(m_device);
    return {};
}

RuntimeError QtSerialDevice::openFailure() const {
    switch (m_port.error()) {
        case QSerialPort::DeviceNotFoundError: return portproblem::gone(m_device);
        case QSerialPort::PermissionError: return portproblem::held(m_device);
        default: return portproblem::noSerialPort(m_device, m_port.errorString().toStdString());
    }
}

Failure QtSerialDevice::prepareLine(const LineSettings& settings, Handshaking handshaking) {
    const auto refused = tty::applyFormat(m_port.handle(), settings, handshaking);
    if (!refused.empty()) return portproblem::notSupported(m_device, refused);
    m_rtsIsHandshaking = handshaking == Handshaking::Rts || handshaking == Handshaking::RtsXonXoff;
    if (m_rtsIsHandshaking) tty::setLine(m_port.handle(), tty::OutputLine::Rts, true);
    if (const auto lines = tty::modemLines(m_port.handle())) {
        m_modemLines = *lines;
        m_modemPoll.start(modemPollMs);
    }
    return {};
}

void QtSerialDevice::close() {
    m_opening.reset();
    m_modemPoll.stop();
    if (!m_port.isOpen()) return;
    m_port.disconnect();
    // A tty waits up to half a minute in close() for what a held line does not let out.
    discardUnsent();
    m_port.close();
}

void QtSerialDevice::write(std::string_view wire) {
    if (!m_port.isOpen()) return;
    m_port.write(wire.data(), static_cast<qint64>(wire.size()));
    m_port.flush();  // now, as far as it goes without waiting, and not after another round of the event loop
}

std::string QtSerialDevice::read() {
    return m_port.isOpen() ? m_port.readAll().toStdString() : std::string();
}

std::size_t QtSerialDevice::waiting() const {
    return m_port.isOpen() ? static_cast<std::size_t>(m_port.bytesAvailable()) : 0;
}

std::size_t QtSerialDevice::unsent() const {
    if (!m_port.isOpen()) return 0;
    return static_cast<std::size_t>(m_port.bytesToWrite()) + tty::unsentInSystem(m_port.handle());
}

void QtSerialDevice::discardWaiting() {
    if (m_port.isOpen()) m_port.clear(QSerialPort::Input);
}

void QtSerialDevice::discardUnsent() {
    if (m_port.isOpen()) m_port.clear(QSerialPort::Output);
}

void QtSerialDevice::setRts(bool raised) {
    if (m_port.isOpen() && !m_rtsIsHandshaking) tty::setLine(m_port.handle(), tty::OutputLine::Rts, raised);
}

void QtSerialDevice::setDtr(bool raised) {
    if (m_port.isOpen()) tty::setLine(m_port.handle(), tty::OutputLine::Dtr, raised);
}

void QtSerialDevice::onReadyRead() {
    m_errorsInARow = 0;
    if (std::exchange(m_receiveTold, true)) return;
    later([this] {
        m_receiveTold = false;
        if (waiting() > 0) received.emit();
    });
}

/// An unplugged device repeats its error without end: from the first one on nothing is listened to any more. Not every
/// error tells of that: the library stumbles when what its notifier announced was discarded before it came to read, and
/// then stops listening. Setting the buffer size starts it again.
void QtSerialDevice::onError(QSerialPort::SerialPortError error) {
    if (error == QSerialPort::NoError) return;
    if (++m_errorsInARow < mostErrors && !tty::isGone(m_port.handle())) return m_port.setReadBufferSize(0);
    m_port.disconnect();
    later([this] { onLost(); });
}

void QtSerialDevice::onLost() {
    close();
    lost.emit(portproblem::unplugged(m_device));
}

std::optional<bool> QtSerialDevice::cts() const {
    const auto lines = m_port.isOpen() ? tty::modemLines(m_port.handle()) : std::nullopt;
    return lines ? std::optional(lines->cts) : std::nullopt;
}

void QtSerialDevice::pollModemLines() {
    const auto lines = tty::modemLines(m_port.handle());
    if (!lines) return m_modemPoll.stop();
    const auto before = std::exchange(m_modemLines, *lines);
    tellIfChanged(before.cts, lines->cts, ModemLine::Cts);
    tellIfChanged(before.dsr, lines->dsr, ModemLine::Dsr);
    tellIfChanged(before.carrier, lines->carrier, ModemLine::Carrier);
}

void QtSerialDevice::tellIfChanged(bool before, bool now, ModemLine line) {
    if (before != now) later([this, line] { lineChanged.emit(line); });
}

}  // namespace korvex
