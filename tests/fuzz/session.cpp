#include <algorithm>
#include <map>

#include "base/CodePage.h"
#include "cli/CliBench.h"
#include "fuzz/Fuzz.h"
#include "fuzz/Judge.h"
#include "fuzz/Talk.h"

namespace korvex {

namespace {

using cli::CliBench;

/// What korvexctl saves from a healthy radio.
const std::string& saved(const std::string& kind) {
    static std::map<std::string, std::string> files;
    std::string& file = files[kind];
    if (!file.empty()) return file;
    CliBench bench;
    bench.run({"--demo", "save", kind, bench.folder.file("saved")});
    return file = fakes::fileContent(bench.folder.file("saved"));
}

/// By the input's first character.
std::vector<std::string> arguments(CliBench& bench, char first) {
    const std::string file = bench.folder.file("file");
    const auto with = [&](const std::string& kind, std::vector<std::string> words) {
        fakes::writeFile(file, saved(kind));
        return words;
    };
    switch (first) {
        case 'm': return {"--demo", "save", "menu", file};
        case 'e': return {"--demo", "save", "memory", file};
        case 'l': return {"--demo", "save", "list", file};
        case 'b': return {"--demo", "save", "bandstack", file};
        case 'k': return {"--demo", "save", "keyer", file};
        case 'M': return with("menu", {"--demo", "restore", "--verify", "menu", file});
        case 'K': return with("keyer", {"--demo", "restore", "--verify", "keyer", file});
        case 'B': return with("bandstack", {"--demo", "restore", "bandstack", file});
        case 'c': return with("keyer", {"--demo", "compare", "--kind", "keyer", file, "radio"});
        case 'C': return with("memory", {"--demo", "compare", "--kind", "memory", "radio", file});
        case 'w': return {"--demo", "backup", bench.folder.path()};
        default: return {"--demo", "send", "FA;"};
    }
}

/// Neither broken characters nor anything that a terminal would obey.
bool canBeShown(const std::string& text) {
    const auto obeyed = [](char c) { return c != '\n' && c != '\t' && c >= 0 && (c < ' ' || c == '\x7F'); };
    const std::string_view upperControls = "\xC2";
    for (auto at = text.find(upperControls); at != std::string::npos; at = text.find(upperControls, at + 1)) {
        if (static_cast<unsigned char>(text.at(at + 1)) < 0xA0) return false;
    }
    return isUtf8(text) && std::none_of(text.begin(), text.end(), obeyed);
}

}  // namespace

/// korvexctl with a hostile radio: it comes to an end whatever is said, and what it prints can be printed.
FUZZ_TARGET(session) {
    CliBench bench;
    const auto words = arguments(bench, input.empty() ? ' ' : input.front());
    bench.meanwhile = [&](cli::Session&) {
        fuzz::Talk talk(bench.ports, bench.clock, input.substr(std::min<std::size_t>(1, input.size())));
        while (!talk.isOver()) static_cast<void>(talk.step());
    };
    bench.run(words);
    EXPECT_TRUE(canBeShown(bench.out.str())) << bench.out.str();
    EXPECT_TRUE(canBeShown(bench.err.str())) << bench.err.str();
    EXPECT_EQ(fuzz::keysTransmitterWith(bench.ports.written), "");
}

}  // namespace korvex
