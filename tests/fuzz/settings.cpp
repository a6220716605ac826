#include "platform/Settings.h"

#include <algorithm>

#include "fakes/ProgramBench.h"
#include "fakes/ScriptedDevice.h"
#include "fuzz/Fuzz.h"
#include "platform/PortNumbers.h"
#include "windows/WindowGeometry.h"

namespace korvex {

namespace {

using Bench = fakes::ProgramBench<fakes::ScriptedPorts>;

/// The lines of a settings file, "section/key=value"; one without "=" is the name of a port.
std::vector<std::string> fill(fakes::FakeSettings& settings, std::string_view input) {
    std::vector<std::string> names;
    for (const auto& line : fuzz::cutAt('\n', input)) {
        const auto equals = line.find('=');
        if (equals == std::string::npos) {
            names.push_back(line);
        } else {
            settings.values[line.substr(0, equals)] = line.substr(equals + 1);
        }
    }
    return names;
}

/// Where a window is put, it is found again, and its title bar can be grasped.
void checkPlaces(fakes::FakeSettings& settings) {
    const std::vector<WindowPlace> screens = {{0, 0, 28'800, 16'200}, {28'800, -3'000, 15'360, 11'520}};
    for (const auto& geometry :
         {geometry::startWindow, geometry::terminal, geometry::memoryEditor, geometry::memoryList,
          geometry::menuManager, geometry::equalizer, geometry::bandStack, geometry::keyer}) {
        const WindowPlace place = geometry.load(settings);
        EXPECT_TRUE(place.width > 0 && place.height > 0);
        const WindowPlace seen = broughtIntoSight(place, screens);
        EXPECT_EQ(broughtIntoSight(seen, screens), seen);
        EXPECT_TRUE(std::any_of(screens.begin(), screens.end(), [&seen](const WindowPlace& screen) {
            return seen.left < screen.left + screen.width && seen.left + seen.width > screen.left &&
                   seen.top >= screen.top && seen.top < screen.top + screen.height;
        }));
        geometry.save(settings, place);
        EXPECT_EQ(geometry.load(settings), place);
    }
}

void checkPortNumbers(const std::vector<std::string>& names) {
    PortNumbers numbers;
    std::vector<FoundPort> found;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i % 3 == 0) numbers.remember(static_cast<int>(i % 20) + 1, names[i]);
        if (i % 3 == 1) numbers.give(static_cast<int>(i % 20) + 1, names[i]);
        if (i % 3 != 0) found.push_back({names[i], {names[i] + "-by-id", names[i / 2]}, names[i]});
    }
    numbers.setFound(found);
    for (int number = PortNumbers::first; number <= PortNumbers::last; ++number) {
        const auto* port = numbers.foundAt(number);
        EXPECT_TRUE(port == nullptr || !numbers.deviceOf(number).empty());
    }
}

}  // namespace

/// Stored settings that another program or a bad disk has written: the program starts, the port dialog opens and stores
/// only what it can read again.
FUZZ_TARGET(settings) {
    Bench bench;
    bench.msgBox.whileShown = [&bench] { bench.msgBox.foresee(""); };
    bench.ports.plug(1);
    bench.ports.plug(7);
    checkPortNumbers(fill(bench.settings, input));
    checkPlaces(bench.settings);
    auto& program = bench.program;
    program.terminal.Form_Load();
    program.bandStackWindow.Form_Load();
    program.eqWindow.Form_Load(bench.settings);
    auto dialog = program.makePortSettings();
    dialog.Form_Load();
    if (!dialog.cmdOK_Click()) return;
    const auto stored = parseLineSettings(storedText(bench.settings, keys::lineSettings));
    ASSERT_TRUE(stored) << stored.error().text;
    EXPECT_EQ(*stored, program.MSComm1.lineSettings());
    program.portSettingsStored();
    bench.openPort();
    EXPECT_FALSE(bench.ports[1].rts || bench.ports[1].dtr || bench.ports[7].rts || bench.ports[7].dtr);
    EXPECT_TRUE(program.end());
}

}  // namespace korvex
