#include "TroubleBench.h"

#include <algorithm>
#include <sstream>

namespace korvex {

namespace {

std::vector<std::filesystem::path> backupsIn(const std::string& folder) {
    std::vector<std::filesystem::path> all;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(folder, none)) all.push_back(entry.path());
    std::sort(all.begin(), all.end());
    return all;
}

}  // namespace

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

TroubleBench::TroubleBench(Pace pace) {
    program.link.pace = pace;
    writeSetting(settings, keys::checkProposed, true);
    fileDialog.whileShown = [this] {
        using Mode = FileDialogRequest::Mode;
        const Mode mode = fileDialog.shown.back().mode;
        fileDialog.choose(mode == Mode::Folder ? backups : mode == Mode::Save ? target : source);
    };
    msgBox.whileShown = [this] {
        const bool isQuestion = msgBox.shown.back().buttons == MsgButtons::YesNoCareful;
        msgBox.foresee("", isQuestion ? MsgAnswer::Yes : MsgAnswer::Ok);
    };
    auto& bandStack = program.bandStackWindow;
    auto& keyer = program.keyerWindow;
    listenTo("menu reader", program.menuSave.ended);
    listenTo("Menu Manager reader", program.menuManager.reader().ended);
    listenTo("menu writer", program.menuRestore.ended);
    listenTo("backup", program.backup.ended);
    listenTo("Menu Manager writer", program.menuManager.writer().ended);
    listenTo("menu item exchange", program.menuManager.exchange().ended);
    listenTo("memory editor", program.memory.editor.readingEnded);
    listenTo("memory reader", program.memory.saver.ended);
    listenTo("memory list reader", program.memory.listReader.ended);
    listenTo("memory restorer", program.memory.restorer.ended);
    listenTo("memory list writer", program.memory.listWriter.ended);
    listenTo("band stack reader", bandStack.readEnded);
    listenTo("band stack writer", bandStack.writer().ended);
    listenTo("keyer reader", keyer.reader().ended);
    listenTo("keyer writer", keyer.writer().ended);
    program.bandStackWindow.Form_Load();
    program.eqWindow.Form_Load(settings);
    fakes::writeFile(target, oldContent);
}

void TroubleBench::listenTo(const std::string& part, Signal<const Outcome&>& ended) {
    m_connections += ended.connect([this, part](Outcome::Kind end) { ends[part] = end; });
}

std::optional<Outcome::Kind> TroubleBench::endOf(const TriedOperation& operation) {
    if (operation.endedBy == "equalizer") {
        return program.eqWindow.isPortOpen() ? Outcome::Kind::Done : Outcome::Kind::PortClosed;
    }
    const auto end = ends.find(std::string(operation.endedBy));
    return end == ends.end() ? std::nullopt : std::optional(end->second);
}

void TroubleBench::closePorts() {
    program.link.closePort();
    program.eqWindow.closePort();
}

bool TroubleBench::anythingRuns() {
    if (program.link.operation() != nullptr) return true;
    return std::any_of(operations().begin(), operations().end(),
                       [this](const TriedOperation& operation) { return operation.running(*this); });
}

std::string TroubleBench::lastBackup() const {
    auto all = backupsIn(backups);
    std::erase_if(all, [](const auto& one) { return one.extension() == ".incomplete"; });
    std::string text;
    if (all.empty()) return text;
    for (const char* file : {"menu.mnu", "memory.mem", "list.mef", "bandstack.bsr", "keyer.kem"}) {
        for (const auto& line : linesOf(fakes::fileContent(all.back() / file))) text += file + line + "\n";
    }
    return text;
}

std::string TroubleBench::whatIsWrong() {
    const bool open = program.link.PortOpen();
    auto& shown = program.link.indicators();
    std::string wrong;
    const auto expect = [&wrong](bool holds, const char* what) {
        if (!holds) wrong += std::string(what) + "; ";
    };
    expect(!program.progress.visible, "the progress window stays");
    expect(shown.open == open, "the connect pictures lie");
    expect(shown.clickLabel.get() == (open ? "click to close" : "click to open"), "the click label lies");
    expect(shown.bandStack.get() == (open ? "RS232 open" : "RS232 closed"), "the band stack's panel lies");
    expect(shown.menuManager.get() == (open ? "RS232 open " : "RS232 closed"), "the Menu Manager's panel lies");
    expect((program.link.panels().Settings.get() == "Settings: ") == !open, "the settings panel lies");
    expect(program.link.panels().ConnectTime.get().empty() || open, "the connect clock runs on");
    expect(program.eqWindow.connected == program.eqWindow.isPortOpen(), "the equalizer's pictures lie");
    expect(portOpen() == (open || program.eqWindow.isPortOpen()), "the device is open for nobody");
    expect(ports.radio().timesKeyed == 0, "the transmitter was keyed");
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        const auto name = entry.path().filename();
        expect(name == "source" || name == "target" || name == "backups", "a stray file");
    }
    for (const auto& backup : backupsIn(backups)) {
        const bool mayGoOn = backup.extension() == ".incomplete" && std::filesystem::exists(backup / journalName);
        expect(mayGoOn || std::filesystem::exists(backup / "summary.txt"), "a backup that is not whole");
    }
    return wrong;
}

const TriedOperation& secondOperation(const TriedOperation& first) {
    const auto& all = operations();
    const bool isLast = &first == &all.back();
    return isLast ? all.front() : all.back();
}

}  // namespace korvex
