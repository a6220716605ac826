#pragma once

#include <string>
#include <vector>

#include "menu/MenuWriter.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// Whether the radio's own CAT settings, which `cat` would change, are to be written, too. `title` is of the box.
bool mayWriteCatSettings(MsgBox& msgBox, const std::vector<std::string>& cat, const std::string& title);

/// Settings from firmware with other menu numbers would set other items than they are meant for: refused where the
/// radio is known to have early ones, asked about where the settings have.
bool mayWriteNumbers(MsgBox& msgBox, const std::vector<std::string>& lines, const KnownRadio& radio,
                     const std::string& title);

/// "&Restore Menu to FT2000": from the file dialog to the end of the writing. Everything that there is to ask is asked
/// before the first line goes out, and what is no menu file is refused whole. The radio's own CAT settings come last,
/// if the person wants them at all: a speed that is not the port's would cut off whatever follows.
class MenuRestore {
public:
    MenuRestore(CatLink& link, OwnersFiles& files, MenuWriter& writer);

    /// With the port closed the file is looked at and nothing is sent.
    void mnu_Restore_Click();

    bool running() const { return m_writer.running(); }
    Signal<const Outcome&> ended;

private:
    bool mayBeIncomplete(const std::string& file, const std::vector<std::string>& lines);
    void end(Outcome::Kind kind) { ended.emit(kind); }

    CatLink& m_link;
    OwnersFiles& m_files;
    MenuWriter& m_writer;
    Connection m_written;
};

}  // namespace korvex
