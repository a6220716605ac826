#pragma once

#include <string>

#include "bandstack/BandStack.h"
#include "bandstack/BandStackReader.h"
#include "bandstack/BandStackWriter.h"
#include "base/Property.h"
#include "platform/Clock.h"
#include "platform/FileDialog.h"
#include "platform/MsgBox.h"
#include "platform/SettingsStore.h"
#include "terminal/Terminal.h"

namespace korvex {

/// What the band stack window needs of the rest.
struct BandStackNeeds {
    Terminal& terminal;
    Clock& clock;
    SettingsStore& settings;
    FileDialog& fileDialog;
    MsgBox& msgBox;
    std::string programFolder;  ///< UTF-8, without a slash at the end
};

/// What the band stack window decides: its two transfers, its files and how it is closed.
class BandStackWindow {
public:
    explicit BandStackWindow(BandStackNeeds needs);

    /// The grid as the window finds it, and the remembered path.
    void Form_Load();

    void mnu_readBandStack_Click();
    void mnu_writeBandStack_Click();
    void mnu_loadDatafromHD_Click() { loadBandStackFile(); }
    void mnu_saveDatafromHD_Click() { saveBandStackFile(); }
    void mnu_closeWindow_Click();
    void closeBox();

    /// Each asks for a file first. How it ended is for those who have no window.
    TransferEnd saveBandStackFile();
    TransferEnd loadBandStackFile();

    BandStack& stack() { return m_stack; }
    BandStackReader& reader() { return m_reader; }
    BandStackWriter& writer() { return m_writer; }

    Property<std::string> Text2;         ///< the remembered file, UTF-8
    Property<std::string> dateipath;     ///< panel "Dateipath"
    Property<std::string> Label2;        ///< the error number of the last load
    Property<bool> Label2Yellow{false};  ///< an error has been seen

    /// Where closing leads, in the order in which they are told.
    Signal<> storePlace;
    Signal<> hideTerminal;
    Signal<> hide;
    Signal<> buttonBackToNormal;  ///< the start window's band stack button

private:
    FileDialogRequest request(FileDialogRequest::Mode mode) const;
    void remember(const std::string& file);
    Failure readFile(const std::string& file);
    void showLoadError(int number);

    BandStackNeeds m_needs;
    BandStack m_stack;
    BandStackReader m_reader;
    BandStackWriter m_writer;
};

}  // namespace korvex
