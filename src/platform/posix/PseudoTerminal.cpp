#include "platform/PseudoTerminal.h"

#include "platform/posix/Pty.h"

namespace korvex {

namespace {

class PtySide : public PseudoTerminal {
public:
    Failure open(const std::string& link) {
        if (auto failure = m_pty.open()) return failure;
        return link.empty() ? Failure() : m_pty.makeLink(link);
    }

    std::string deviceName() const override { return m_pty.deviceName(); }
    std::vector<int> descriptors() const override { return m_pty.descriptors(); }
    std::string read() override { return m_pty.read(); }
    void write(std::string_view bytes) override { m_pty.write(bytes); }
    bool lastUserLeft() override { return m_pty.lastUserLeft(); }

private:
    pty::Pty m_pty;
};

}  // namespace

Result<std::unique_ptr<PseudoTerminal>> openPseudoTerminal(const std::string& link) {
    auto side = std::make_unique<PtySide>();
    if (auto failure = side->open(link)) return *failure;
    return std::unique_ptr<PseudoTerminal>(std::move(side));
}

}  // namespace korvex
