#include "share/PortShare.h"

#include <utility>

namespace korvex {

namespace {

constexpr std::size_t mostGuests = 16;

RuntimeError noDoors() {
    return {errors::DeviceIo, "This machine has no way to share a port with other programs."};
}

}  // namespace

Failure PortShare::openTerminal(const std::string& link) {
    if (m_doors == nullptr) return noDoors();
    auto terminal = m_doors->openTerminal(link);
    if (!terminal) return terminal.error();
    m_terminal = std::make_unique<CatFace>(m_line, std::move(terminal->caller));
    device = terminal->device;
    prepareAnswers();
    return {};
}

void PortShare::closeTerminal() {
    m_terminal.reset();
    device = "";
    prepareAnswers();
}

Failure PortShare::listen(int port) {
    if (m_doors == nullptr) return noDoors();
    auto listener = m_doors->listen(port);
    if (!listener) return listener.error();
    m_listener = std::move(*listener);
    m_called = m_listener->called.connect([this](const std::shared_ptr<Caller>& caller) { welcome(caller); });
    listeningAt = port;
    prepareAnswers();
    return {};
}

void PortShare::stopListening() {
    m_called.end();
    m_listener.reset();
    m_guests.clear();
    listeningAt = 0;
    prepareAnswers();
}

void PortShare::prepareAnswers() {
    const bool shared = m_terminal || m_listener;
    if (shared != static_cast<bool>(m_opening))
        m_opening = shared ? std::make_unique<OpeningAnswers>(m_link, m_line, m_clock) : nullptr;
}

/// A caller that is not kept is hung up on.
void PortShare::welcome(const std::shared_ptr<Caller>& caller) {
    if (m_guests.size() >= mostGuests) return;
    auto face = std::make_unique<RigctlFace>(m_line, caller);
    Connection left = face->left.connect([this, guest = face.get()] { dismiss(guest); });
    m_guests.push_back({std::move(face), std::move(left)});
}

void PortShare::dismiss(const RigctlFace* face) {
    std::erase_if(m_guests, [face](const Guest& guest) { return guest.face.get() == face; });
}

}  // namespace korvex
