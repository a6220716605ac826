#pragma once

#include "menu/MenuReader.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// "Save Menu of  FT-2000": reads the menu, then asks for a file and writes it. What was read incompletely is kept,
/// too, and said to be incomplete; when the reading did not come to its end, if the person wants it.
class MenuSave {
public:
    MenuSave(CatLink& link, OwnersFiles& files);

    void mnu_Store_Click() { m_reader.read(); }
    /// Asks for a file name and writes the answers of the last read.
    Outcome::Kind saveMenuFile();

    bool running() const { return m_reader.running(); }
    const MenuCommandTable& answers() const { return m_reader.answers(); }
    Signal<const Outcome&> ended;

private:
    void onRead(const Outcome& outcome);
    void saveIncomplete(const MenuCommandTable& named);
    Outcome::Kind write(const MenuCommandTable& table, bool incomplete);

    CatLink& m_link;
    OwnersFiles& m_files;
    MenuReader m_reader;
    Connection m_read;
};

}  // namespace korvex
