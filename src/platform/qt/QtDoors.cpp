#include "platform/qt/QtDoors.h"

#include <QHostAddress>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>
#include <vector>

#include "platform/PseudoTerminal.h"

namespace korvex {

namespace {

/// Whoever opens the device, one after the other or together.
class TerminalCaller : public Caller {
public:
    explicit TerminalCaller(std::unique_ptr<PseudoTerminal> terminal) : m_terminal(std::move(terminal)) {
        for (const int descriptor : m_terminal->descriptors()) {
            m_notifiers.push_back(std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read));
            QObject::connect(m_notifiers.back().get(), &QSocketNotifier::activated, [this] { look(); });
        }
    }

    void write(std::string_view bytes) override { m_terminal->write(bytes); }

private:
    void look() {
        if (const std::string bytes = m_terminal->read(); !bytes.empty()) said.emit(bytes);
        if (m_terminal->lastUserLeft()) left.emit();
    }

    std::unique_ptr<PseudoTerminal> m_terminal;
    std::vector<std::unique_ptr<QSocketNotifier>> m_notifiers;
};

class SocketCaller : public Caller {
public:
    explicit SocketCaller(QTcpSocket* socket) : m_socket(socket) {
        m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        QObject::connect(socket, &QTcpSocket::readyRead, socket,
                         [this] { said.emit(m_socket->readAll().toStdString()); });
        QObject::connect(
            socket, &QTcpSocket::disconnected, socket, [this] { left.emit(); }, Qt::QueuedConnection);
    }
    ~SocketCaller() override {
        m_socket->disconnect();
        m_socket->abort();
        m_socket->deleteLater();
    }

    void write(std::string_view bytes) override {
        constexpr qint64 mostUnread = 65'536;
        if (m_socket->bytesToWrite() > mostUnread) return;
        m_socket->write(bytes.data(), static_cast<qint64>(bytes.size()));
    }

private:
    QTcpSocket* m_socket;
};

class SocketListener : public Listener {
public:
    SocketListener() {
        QObject::connect(&m_server, &QTcpServer::newConnection, [this] {
            while (QTcpSocket* socket = m_server.nextPendingConnection()) {
                socket->setParent(nullptr);  // its caller has it now
                called.emit(std::make_shared<SocketCaller>(socket));
            }
        });
    }
    Failure listen(int port) {
        if (m_server.listen(QHostAddress::LocalHost, static_cast<quint16>(port))) return {};
        return RuntimeError{errors::DeviceIo,
                            "Port " + std::to_string(port) + ": " + m_server.errorString().toStdString() + "."};
    }

private:
    QTcpServer m_server;
};

}  // namespace

Result<Doors::Terminal> QtDoors::openTerminal(const std::string& link) {
    auto terminal = openPseudoTerminal(link);
    if (!terminal) return terminal.error();
    std::string device = (*terminal)->deviceName();
    return Terminal{std::move(device), std::make_unique<TerminalCaller>(std::move(*terminal))};
}

Result<std::unique_ptr<Listener>> QtDoors::listen(int port) {
    auto listener = std::make_unique<SocketListener>();
    if (auto failure = listener->listen(port)) return *failure;
    return std::unique_ptr<Listener>(std::move(listener));
}

std::string QtDoors::usualLink() const {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return folder.isEmpty() ? "" : folder.toStdString() + "/korvex-ft2000";
}

}  // namespace korvex
