#pragma once

#include "cat/CatLink.h"
#include "platform/MsgBox.h"
#include "platform/SettingsStore.h"
#include "share/PortShare.h"

namespace korvex {

/// The three entries of the terminal's port menu that let other programs in; what is switched on PortShare knows. The
/// two ways in are remembered and open again at the next start; leave to transmit is given anew each time.
class ShareEntry {
public:
    struct Needs {
        CatLink& link;
        PortShare& share;
        SettingsStore& settings;
        MsgBox& msgBox;
    };
    explicit ShareEntry(const Needs& needs);

    /// Once, when the terminal is first needed.
    void recall();

    void mnu_sharePort_Click();      ///< "Share Port"
    void mnu_shareRigctl_Click();    ///< "Share as rigctld Server"
    void mnu_shareTransmit_Click();  ///< "Shared Port may transmit"

    PortShare& share() { return m_needs.share; }

private:
    void showPort(bool open);
    void showRigctl(bool open);
    void tell(const Failure& failure);

    Needs m_needs;
    bool m_recalled = false;
    Connection m_told;
};

}  // namespace korvex
