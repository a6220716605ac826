#include "bandstack/BandStackWindow.h"

#include <utility>

#include "bandstack/BandStackFile.h"
#include "platform/TextFile.h"

namespace korvex {

namespace {

constexpr std::string_view pathKey = "SavePathBand";
constexpr int cancelled = 32755;  // what the file dialog reports for its Cancel button
constexpr int queryColumnWidth = 700;
constexpr int registerColumnWidth = 1100;

std::string_view messageFor(int number) {
    switch (number) {
        case errors::FileNotFound: return "Datei nicht gefunden";
        case errors::TypeMismatch: return "Datei nicht für diese Version des Programms ";
        case 16:
        case 20:
        case errors::PathNotFound: return "Pfadeingabe falsch ";
        case errors::DeviceIo:
        case errors::PermissionDenied:
        case errors::PathFileAccess: return "Pfadeingabe falsch ausgefüllt";
        case 327: return "Pfadeingabe  ";
        default: return "";
    }
}

}  // namespace

BandStackWindow::BandStackWindow(BandStackNeeds needs)
    : m_needs(std::move(needs)),
      m_reader(m_needs.terminal, m_needs.clock, m_stack),
      m_writer(m_needs.terminal, m_needs.clock, m_stack) {
    m_reader.saveBandStackFile = [this] { return saveBandStackFile(); };
    m_stack.initBandStackGrid();
    auto& grid = m_stack.FlexGrid1;
    grid.setFixed(1, 1);
    grid.setColWidth(0, queryColumnWidth);
    for (int column = 1; column < grid.Cols(); ++column) grid.setColWidth(column, registerColumnWidth);
}

void BandStackWindow::Form_Load() {
    Text2 = m_needs.settings.get(applicationName, settingsSection, pathKey, m_needs.programFolder + "/files");
    dateipath = Text2;
    m_stack.initBandStackGrid();
}

// The two sequences share one cursor: the one that starts last owns it, and the other must not step on with it.

void BandStackWindow::mnu_readBandStack_Click() {
    m_writer.stop();
    m_reader.mnu_readBandStack_Click();
}

void BandStackWindow::mnu_writeBandStack_Click() {
    if (m_needs.terminal.link().PortOpen()) {
        m_reader.stop();
        m_writer.stop();
        // A file may have left fewer rows; the antenna step needs its own.
        if (m_stack.FlexGrid1.Rows() < BandStack::rows) m_stack.FlexGrid1.setRows(BandStack::rows);
    }
    m_writer.mnu_writeBandStack_Click();
}

void BandStackWindow::mnu_closeWindow_Click() {
    storePlace.emit();
    hideTerminal.emit();
    hide.emit();
    buttonBackToNormal.emit();
}

void BandStackWindow::closeBox() {
    storePlace.emit();
    hide.emit();
}

FileDialogRequest BandStackWindow::request(FileDialogRequest::Mode mode) const {
    return {mode, "", "Flat File (*.bsr)|*.bsr|All Files (*.*)|*.*", Text2, "bsr"};
}

void BandStackWindow::remember(const std::string& file) {
    Text2 = file;
    dateipath = file;
    m_needs.settings.save(applicationName, settingsSection, pathKey, file);
}

TransferEnd BandStackWindow::saveBandStackFile() {
    const std::string content = bandStackFileText(m_stack);
    const auto file = m_needs.fileDialog.show(request(FileDialogRequest::Mode::Save));
    if (!file) return TransferEnd::Cancelled;
    remember(*file);
    if (const auto failure = textfile::write(*file, content)) {
        dateipath = "Not saved: " + failure->text;
        return TransferEnd::FileFailed;
    }
    return TransferEnd::Done;
}

TransferEnd BandStackWindow::loadBandStackFile() {
    const auto file = m_needs.fileDialog.show(request(FileDialogRequest::Mode::Open));
    if (!file) {
        showLoadError(cancelled);
        return TransferEnd::Cancelled;
    }
    remember(*file);
    const auto failure = readFile(*file);
    showLoadError(failure ? failure->number : 0);
    return failure ? TransferEnd::FileFailed : TransferEnd::Done;
}

Failure BandStackWindow::readFile(const std::string& file) {
    const auto content = textfile::read(file);
    if (!content) return content.error();
    BandStackFields parsed;
    if (auto failure = parseBandStackText(*content, parsed)) return failure;
    fillGrid(m_stack, parsed);
    return {};
}

void BandStackWindow::showLoadError(int number) {
    if (number > 0) Label2Yellow = true;
    const auto message = messageFor(number);
    Label2 = std::to_string(message.empty() ? 0 : number);
    if (!message.empty()) m_needs.msgBox.stop(std::string(message));
}

}  // namespace korvex
