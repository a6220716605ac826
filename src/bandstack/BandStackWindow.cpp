#include "bandstack/BandStackWindow.h"

#include <utility>

#include "bandstack/BandStackFile.h"
#include "bandstack/BandStackParts.h"
#include "base/CodePage.h"
#include "cat/FileToRestore.h"

namespace korvex {

namespace {

constexpr int frequencyRow = 10;  // FA;

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

BandStackWindow::BandStackWindow(CatLink& link, Clock& clock, const OwnersDesk& desk)
    : m_link(link),
      m_files(desk, keys::bandStackPath),
      m_reader(link, clock),
      m_writer(link),
      m_walk(link, m_reader, m_writer),
      m_comparison(m_stack, link, clock, m_files, m_writer) {
    listen();
}

void BandStackWindow::listen() {
    m_connections += m_reader.began.connect([this] { m_stack.show(m_reader.cells()); });
    m_connections += m_reader.told.connect(
        [this](int row, int column) { m_stack.show(row, column, m_reader.cells().at(row, column)); });
    m_connections += m_reader.silent.connect([this] { tellSilence(); });
    m_connections += m_reader.ended.connect([this](const Outcome& outcome) {
        if (m_goesHome) return;
        onReadEnded(outcome);
        tellWhereItStands(outcome, m_reader.cells());
    });
    m_connections += m_walk.ended.connect([this](const Outcome& outcome) {
        m_walk.writes() ? onWriteEnded(outcome) : onReadEnded(outcome);
        const std::string& why = m_walk.whyNotHome();
        if (why.empty()) return;
        m_link.received().append("\r\n " + why + " \r\n");
        if (m_walk.writes() && m_writesPart) m_files.msgBox().exclamation(why);
    });
    m_connections += m_writer.began.connect([this] {
        if (!m_writesPart) m_stack.show(m_writer.cells());
    });
    m_connections += m_writer.told.connect([this](int row, int column) {
        if (!m_writesPart) m_stack.show(row, column, m_writer.cells().at(row, column));
    });
    m_connections += m_comparison.reader().silent.connect([this] { tellSilence(); });
    m_connections += m_writer.sendsCell.connect([this](const std::string& wire) { cellWritten = utf8FromWire(wire); });
    m_connections += m_writer.ended.connect([this](const Outcome& outcome) {
        if (m_goesHome) return;
        onWriteEnded(outcome);
        if (!m_writesPart) tellWhereItStands(outcome, m_writer.cells());
    });
}

void BandStackWindow::Form_Load() {
    m_files.recall();
    dateipath = m_files.path.get();
}

void BandStackWindow::tellSilence() {
    m_link.received().append(
        "\r\n Attention: the radio has not answered for 5 seconds and is asked again and again. \r\n"
        " Closing the port ends the reading. \r\n");
}

void BandStackWindow::onReadEnded(Outcome outcome) {
    if (outcome.isDone()) {
        outcome.kind = saveBandStackFile();
        tellStrangeAnswers();
    } else {
        m_link.panels().Error = inWords(outcome, {"register", "registers"});
    }
    readEnded.emit(outcome);
}

/// Nothing leads the radio back from a walk at fixed intervals.
void BandStackWindow::tellWhereItStands(const Outcome& outcome, const BandStackCells& cells) {
    if (outcome.of == 0) return;  // it has not begun
    int last = BandStackCells::registers;
    while (last > 1 && cells.at(1, last) == "?;") --last;
    const std::string frequency = readableAnswer(cells.at(frequencyRow, last));
    const bool isKnown = outcome.isFlawless() && !frequency.empty();
    m_link.received().append(isKnown ? "\r\n The radio stands on " + frequency + " now, \r\n"
                                     : std::string("\r\n The radio may stand on another band than before, \r\n"));
    m_link.received().append(" and in the bands on other registers than before. \r\n");
}

/// The file is what the radio said, but the owner must know when that is not what was asked for.
void BandStackWindow::tellStrangeAnswers() {
    constexpr int all = BandStackCells::lastQueried * BandStackCells::registers;
    const BandStackCells& cells = m_reader.cells();
    int fitting = 0;
    int refused = 0;
    for (int column = 1; column < BandStackCells::columns; ++column) {
        for (int row = 1; row <= BandStackCells::lastQueried; ++row) {
            fitting += cells.answersItsQuery(row, column) ? 1 : 0;
            refused += cells.at(row, column) == "?;" ? 1 : 0;
        }
    }
    const std::string ofAll = " of " + std::to_string(all);
    std::string text;
    if (fitting < all) {
        text = " Attention: only " + std::to_string(fitting) + ofAll +
               " answers belong to their question. \r\n The file cannot be loaded again."
               " Please read the band stack again. \r\n";
    }
    if (refused > 0) text += " Attention: the radio refused " + std::to_string(refused) + ofAll + " questions. \r\n";
    if (!text.empty()) m_link.received().set(text);
}

bool BandStackWindow::mayBeIncomplete(const std::string& question) {
    const std::string missing = missingRegisters(m_stack.cells());
    return missing.empty() || m_files.msgBox().confirm(missing + "\r\n" + question);
}

/// The way home is no part of the sequence that goes at fixed intervals.
void BandStackWindow::mnu_readBandStack_Click() {
    m_goesHome = m_link.pace == Pace::Answered;
    m_goesHome ? m_walk.read() : m_reader.read();
}

void BandStackWindow::mnu_writeBandStack_Click() {
    if (!mayBeIncomplete("Write the band stack all the same?")) return;
    m_writesPart = false;
    m_goesHome = m_link.pace == Pace::Answered;
    m_goesHome ? m_walk.write(m_stack.cells()) : m_writer.write(m_stack.cells());
}

bool BandStackWindow::hasBeenRefused(int column) {
    if (m_stack.cells().at(1, column) != "?;") return false;
    m_files.msgBox().exclamation(registerInWords(column) + " was refused by the radio: there is nothing to write.");
    return true;
}

/// "20 m / 2 is empty or incomplete.", a line each.
std::string BandStackWindow::incompleteIn(const BandStackCells& cells, int first, int count) const {
    std::string text;
    for (int column = first; column < first + count; ++column) {
        if (!isWholeRegister(cells, column)) text += registerInWords(column) + " is empty or incomplete.\r\n";
    }
    return text;
}

void BandStackWindow::mnu_writeBand_Click() {
    const int column = m_stack.grid.Col();
    const int first = firstOfBand(column);
    const BandStackCells cells = m_stack.cells();
    if (hasBeenRefused(first)) return;
    const std::string missing = incompleteIn(cells, first, BandStackCells::perBand);
    const std::string question = "Write " + bandInWords(column) + " all the same?";
    if (!missing.empty() && !m_files.msgBox().confirm(missing + question)) return;
    m_writesPart = m_goesHome = true;
    m_part = bandInWords(column);
    m_walk.writeBand(onlyBandOf(cells, column));
}

void BandStackWindow::mnu_writeRegister_Click() {
    const int column = m_stack.grid.Col();
    const BandStackCells cells = m_stack.cells();
    if (hasBeenRefused(column)) return;
    const std::string question =
        "No command names a register: it is written into the one that the radio stands on.\r\n"
        "Choose that with the radio's band key first.\r\nWrite " +
        registerInWords(column) + " there now?";
    if (!m_files.msgBox().confirm(incompleteIn(cells, column, 1) + question)) return;
    m_writesPart = true;
    m_part = registerInWords(column);
    m_goesHome = false;  // the radio stays where it is
    m_writer.write(onlyRegisterOf(cells, column));
}

void BandStackWindow::mnu_saveDatafromHD_Click() {
    if (mayBeIncomplete("Save the band stack all the same?")) saveBandStackFile();
}

/// What was broken off half-way has left the radio neither as it was nor as it should be.
void BandStackWindow::onWriteEnded(const Outcome& outcome) {
    const ItemWords registers = {"register", "registers", true};
    m_link.report(outcome, outcome.wentThrough() ? ItemWords{"setting", "settings", true} : registers);
    // The terminal, where transfers are told, is not where the band was chosen.
    if (m_writesPart && outcome.wentThrough()) {
        m_comparison.result = m_part + ": " + inWords(outcome, {"setting", "settings", true});
    }
    if (outcome.wentThrough()) return;
    const std::string text = inWords(outcome, registers);
    using Kind = Outcome::Kind;
    if (outcome.kind == Kind::Refused || outcome.kind == Kind::NoAnswer) m_files.msgBox().exclamation(text);
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

Outcome::Kind BandStackWindow::saveBandStackFile() {
    const FileEnd saved =
        m_files.write({"", "bsr", !missingRegisters(m_stack.cells()).empty()}, bandStackFileText(m_stack.cells()),
                      [this](const RuntimeError& error) { tellSaveError(error); });
    const auto kind = outcomeOf(saved);
    if (kind == Outcome::Kind::Done) dateipath = *saved.file;
    return kind;
}

void BandStackWindow::tellSaveError(const RuntimeError& error) {
    dateipath = "Not saved: " + error.text;
    m_files.msgBox().stop(error.text);
}

Outcome::Kind BandStackWindow::loadBandStackFile() {
    const FileEnd loaded = m_files.read({"", "bsr"}, [this](const std::string& content) { return take(content); });
    const auto kind = outcomeOf(loaded);
    if (loaded.failure) {
        tellLoadError(*loaded.failure);
        return kind;
    }
    loadError = "0";
    if (kind == Outcome::Kind::Done) dateipath = *loaded.file;
    if (kind == Outcome::Kind::Cancelled) loadErrorSeen = true;  // a cancelled dialog counts as an error that is none
    return kind;
}

Failure BandStackWindow::take(const std::string& content) {
    const auto cells = parseBandStackText(content);
    if (!cells) return cells.error();
    m_stack.show(*cells);
    return {};
}

void BandStackWindow::tellLoadError(const RuntimeError& error) {
    const std::string_view message = messageFor(error.number);
    loadError = std::to_string(message.empty() ? 0 : error.number);
    loadErrorSeen = true;
    dateipath = "Not loaded: " + error.text;
    m_files.msgBox().stop(message.empty() ? error.text : std::string(message) + "\r\n" + error.text);
}

}  // namespace korvex
