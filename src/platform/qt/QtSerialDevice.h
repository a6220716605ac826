#pragma once

#include <QSerialPort>
#include <QTimer>
#include <memory>

#include "platform/SerialDevice.h"
#include "platform/TtyLine.h"

namespace korvex {

/// A serial device of this machine. It is locked while open, so that two programs never share a line.
class QtSerialDevice : public SerialDevice {
public:
    /// `device` may be a link ("/dev/serial/by-id/..."); it is followed at each opening.
    explicit QtSerialDevice(std::string device);
    ~QtSerialDevice() override;

    Failure open(const LineSettings& settings, Handshaking handshaking) override;
    void close() override;

    void write(std::string_view wire) override;
    std::string read() override;
    std::size_t waiting() const override;
    std::size_t unsent() const override;
    void discardWaiting() override;
    void discardUnsent() override;

    void setRts(bool raised) override;
    void setDtr(bool raised) override;
    std::optional<bool> cts() const override;

private:
    Failure openLocked();
    Failure prepareLine(const LineSettings& settings, Handshaking handshaking);
    RuntimeError openFailure() const;
    void onReadyRead();
    void onError(QSerialPort::SerialPortError error);
    void onLost();
    void pollModemLines();
    void tellIfChanged(bool before, bool now, ModemLine line);
    template <class Work>
    void later(Work work);

    const std::string m_name;
    std::string m_device;
    QSerialPort m_port;
    QTimer m_modemPoll;
    tty::ModemLines m_modemLines;
    bool m_rtsIsHandshaking = false;
    bool m_receiveTold = false;
    int m_errorsInARow = 0;
    std::shared_ptr<const int> m_opening;  // lives from opening to closing; what was put off dies with it
};

}  // namespace korvex
