#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace korvex {

/// Ends a connection when it is destroyed. Keep it as a member next to what the handler uses, so that no handler
/// outlives its owner. A Connection may outlive the signal it belongs to.
class [[nodiscard]] Connection {
public:
    Connection() = default;
    explicit Connection(std::function<void()> disconnect) : m_disconnect(std::move(disconnect)) {}
    Connection(Connection&& other) noexcept : m_disconnect(std::exchange(other.m_disconnect, nullptr)) {}
    Connection& operator=(Connection&& other) noexcept {
        if (this != &other) {
            end();
            m_disconnect = std::exchange(other.m_disconnect, nullptr);
        }
        return *this;
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { end(); }

    void end() {
        if (auto disconnect = std::exchange(m_disconnect, nullptr)) disconnect();
    }

private:
    std::function<void()> m_disconnect;
};

/// A set of connections with one owner: `m_connections += signal.connect(...)`.
class Connections {
public:
    void operator+=(Connection connection) { m_all.push_back(std::move(connection)); }
    void endAll() { m_all.clear(); }

private:
    std::vector<Connection> m_all;
};

/// Calls its handlers in the order in which they were connected. A handler may end any connection (its own too),
/// connect new handlers (called from the next emission on), emit again, and destroy the signal itself. A signal is one
/// place to listen to: it cannot be copied.
template <class... Args>
class Signal {
public:
    using Handler = std::function<void(Args...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    Connection connect(Handler handler) {
        auto slot = std::make_shared<Handler>(std::move(handler));
        m_slots->push_back(slot);
        return Connection([slots = std::weak_ptr<Slots>(m_slots), weak = std::weak_ptr<Handler>(slot)] {
            auto list = slots.lock();
            auto ended = weak.lock();
            if (!list || !ended) return;
            *ended = nullptr;
            std::erase(*list, ended);
        });
    }

    void emit(Args... args) const {
        const Slots called = *m_slots;  // a copy: handlers may change the list, or destroy this signal
        for (const auto& slot : called) {
            const Handler handler = *slot;  // a copy: the handler may end its own connection
            if (handler) handler(args...);
        }
    }

private:
    using Slots = std::vector<std::shared_ptr<Handler>>;
    std::shared_ptr<Slots> m_slots = std::make_shared<Slots>();
};

}  // namespace korvex
