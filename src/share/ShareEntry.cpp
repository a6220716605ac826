#include "share/ShareEntry.h"

#include <utility>

#include "platform/Settings.h"

namespace korvex {

ShareEntry::ShareEntry(const Needs& needs) : m_needs(needs) {
    m_told = m_needs.share.told.connect([this](const std::string& text) { m_needs.link.panels().Error = text; });
}

void ShareEntry::recall() {
    if (std::exchange(m_recalled, true)) return;
    if (readSetting(m_needs.settings, keys::sharePort)) showPort(true);
    if (readSetting(m_needs.settings, keys::shareRigctl)) showRigctl(true);
}

void ShareEntry::mnu_sharePort_Click() {
    showPort(m_needs.share.device.get().empty());
    writeSetting(m_needs.settings, keys::sharePort, !m_needs.share.device.get().empty());
}

void ShareEntry::mnu_shareRigctl_Click() {
    showRigctl(m_needs.share.listeningAt == 0);
    writeSetting(m_needs.settings, keys::shareRigctl, m_needs.share.listeningAt != 0);
}

void ShareEntry::mnu_shareTransmit_Click() {
    PortShare& share = m_needs.share;
    const bool wanted = !share.transmitAllowed();
    share.allowTransmit(wanted && m_needs.msgBox.confirm("Other programs will be able to make the radio transmit. Is "
                                                         "the antenna connected, and do you want that?"));
}

void ShareEntry::showPort(bool open) {
    PortShare& share = m_needs.share;
    const std::string link = share.usualLink();
    if (open) {
        tell(share.openTerminal(link));
    } else {
        share.closeTerminal();
    }
    const std::string device = share.device;
    if (!device.empty()) m_needs.link.panels().Error = "Shared as " + (link.empty() ? "" : link + " or ") + device;
}

void ShareEntry::showRigctl(bool open) {
    PortShare& share = m_needs.share;
    if (open) {
        tell(share.listen(PortShare::usualPort));
    } else {
        share.stopListening();
    }
    if (share.listeningAt != 0)
        m_needs.link.panels().Error = "Shared as rigctld at localhost:" + std::to_string(share.listeningAt);
}

void ShareEntry::tell(const Failure& failure) {
    if (failure) m_needs.msgBox.exclamation(failure->text);
}

}  // namespace korvex
