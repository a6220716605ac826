#pragma once

#include <string>

#include "bandstack/BandStack.h"
#include "bandstack/BandStackComparison.h"
#include "bandstack/BandStackReader.h"
#include "bandstack/BandStackWalk.h"
#include "bandstack/BandStackWriter.h"
#include "base/Property.h"
#include "platform/Clock.h"
#include "platform/OwnersFiles.h"

namespace korvex {

/// What the band stack window decides: its two transfers, its files and how it is closed.
class BandStackWindow {
public:
    BandStackWindow(CatLink& link, Clock& clock, const OwnersDesk& desk);

    /// The remembered path, as the window finds it.
    void Form_Load();

    /// A reading asks for a file at its end.
    void mnu_readBandStack_Click();
    /// Writing and saving ask first when registers are missing.
    void mnu_writeBandStack_Click();
    /// The band, or the register, of the current column alone; the grid stays.
    void mnu_writeBand_Click();
    void mnu_writeRegister_Click();
    void mnu_loadDatafromHD_Click() { loadBandStackFile(); }
    void mnu_saveDatafromHD_Click();
    void mnu_closeWindow_Click();
    void closeBox();

    /// Each asks for a file first. How it ended is for those who have no window.
    Outcome::Kind saveBandStackFile();
    Outcome::Kind loadBandStackFile();

    BandStack& stack() { return m_stack; }
    BandStackReader& reader() { return m_reader; }
    BandStackWriter& writer() { return m_writer; }
    OwnersFiles& files() { return m_files; }
    BandStackComparison& comparison() { return m_comparison; }

    Property<std::string> cellWritten;    ///< the text that is being written to the radio, UTF-8
    Property<std::string> dateipath;      ///< panel "Dateipath"
    Property<std::string> loadError;      ///< the error number of the last load
    Property<bool> loadErrorSeen{false};  ///< an error has been seen

    /// A reading and the saving of what it read have ended.
    Signal<const Outcome&> readEnded;

    /// Where closing leads, in the order in which they are told.
    Signal<> storePlace;
    Signal<> hideTerminal;
    Signal<> hide;
    Signal<> buttonBackToNormal;  ///< the start window's band stack button

private:
    void listen();
    void onReadEnded(Outcome outcome);
    void onWriteEnded(const Outcome& outcome);
    void tellSilence();
    void tellStrangeAnswers();
    void tellWhereItStands(const Outcome& outcome, const BandStackCells& cells);
    bool hasBeenRefused(int column);
    std::string incompleteIn(const BandStackCells& cells, int first, int count) const;
    bool mayBeIncomplete(const std::string& question);
    Failure take(const std::string& content);
    void tellSaveError(const RuntimeError& error);
    void tellLoadError(const RuntimeError& error);

    CatLink& m_link;
    OwnersFiles m_files;
    BandStack m_stack;
    BandStackReader m_reader;
    BandStackWriter m_writer;
    BandStackWalk m_walk;
    bool m_goesHome = false;  // the last transfer leads the radio back to where it was
    BandStackComparison m_comparison;
    std::string m_part;         // that was written last, for a person
    bool m_writesPart = false;  // which is not what the grid shows
    Connections m_connections;
};

}  // namespace korvex
