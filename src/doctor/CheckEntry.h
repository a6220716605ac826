#pragma once

#include <functional>

#include "cat/RadioEntry.h"
#include "doctor/RadioCheck.h"
#include "platform/Clock.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// What the entry needs of the rest.
struct CheckEntryNeeds {
    RadioCheck& check;
    Clock& clock;
    const OwnersDesk& desk;
    std::function<std::string()> whyNotNow;  ///< why there is no line, for the owner; empty when there is one
    std::function<bool()> freeLine;          ///< another operation is stopped for it, or the person wants it to go on
    std::function<bool()> isKnown;           ///< the radio at the open port has been checked
};

/// "Check Radio...": asks the radio, tells in a box what follows, and saves the report where the owner wants it.
class CheckEntry {
public:
    explicit CheckEntry(CheckEntryNeeds needs);

    void mnu_CheckRadio_Click();
    /// Proposes a check to an owner whose radio has had none, once and for all. True when he wants it: it runs then,
    /// and `afterwards` is called when it has come to its end and been told.
    bool propose(std::function<void()> afterwards);

private:
    void begin(std::function<void()> afterwards);
    void onEnded();
    void tell();
    void save(const std::string& report);

    CheckEntryNeeds m_needs;
    OwnersFiles m_files;
    RadioEntry m_entry;
    bool m_started = false;  // from here, and not yet ended
    std::function<void()> m_afterwards;
    Connection m_ended;
};

}  // namespace korvex
