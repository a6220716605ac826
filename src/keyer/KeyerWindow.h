#pragma once

#include <string>

#include "base/Property.h"
#include "keyer/KeyerReader.h"
#include "keyer/KeyerTable.h"
#include "keyer/KeyerWriter.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// What the keyer window decides: its two transfers, its files and how it is closed.
class KeyerWindow {
public:
    KeyerWindow(CatLink& link, const OwnersDesk& desk);

    void mnu_LoadKeyer_Click() { loadKeyerFile(); }
    void mnu_SaveKeyer_Click() { saveKeyerFile(); }
    void mnu_readKeyer_Click() { readKeyer(); }
    void mnu_WriteKeyer_Click() { writeKeyer(); }
    void mnu_clWindow_Click();
    /// The close box: the place is stored and the window goes, as any window does.
    void closeBox();

    void readKeyer();
    /// Sends nothing and says why when one of the texts would not be one command.
    void writeKeyer();
    /// Each asks for a file first. How it ended is for those who have no window.
    Outcome::Kind saveKeyerFile();
    Outcome::Kind loadKeyerFile();

    KeyerTable& table() { return m_table; }
    KeyerReader& reader() { return m_reader; }
    KeyerWriter& writer() { return m_writer; }

    /// The line below the grid (UTF-8): what the user should know about the texts, or why something was not done.
    Property<std::string> hint;

    /// Before the texts are used or replaced: an open cell editor writes back what it holds.
    Signal<> finishEditing;
    /// Where closing leads, in the order in which they are told.
    Signal<> storePlace;
    Signal<> hide;
    Signal<> buttonBackToNormal;  ///< the start window's keyer button; by the menu only

private:
    void onReadEnded(const Outcome& outcome);
    void onWriteEnded(const Outcome& outcome);
    /// Otherwise a box has told which text it is, and why.
    bool canBeSent();
    bool canBeStored();
    void tellSaveError(const RuntimeError& error);
    Failure take(const std::string& content);
    void tellLoaded(int inFile);
    std::string emptyMemories(int last) const;
    /// The memories for which `test` holds, as "KM2, KM4"; empty when there are none.
    template <class Test>
    std::string memoriesThat(Test test) const;

    OwnersFiles m_files;
    KeyerTable m_table;
    KeyerReader m_reader;
    KeyerWriter m_writer;
    KeyerTexts m_written;  // by the last write, or being written
    Connections m_connections;
};

}  // namespace korvex
