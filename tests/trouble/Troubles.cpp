#include "TroubleBench.h"

namespace korvex {

namespace {

void inTheMiddle(TroubleBench& bench, const Healthy& usual, std::function<void()> work) {
    bench.clock.after(usual.duration / 2 + 3, std::move(work));
}

void besideDialogs(TroubleBench& bench, const std::function<void()>& work) {
    bench.fileDialog.whileShown = [answer = bench.fileDialog.whileShown, work] {
        answer();
        work();
    };
}

}  // namespace

const std::vector<LineTrouble>& lineTroubles() {
    using Item = std::string_view;
    static const std::vector<LineTrouble> all = {
        {"none", [](Faults&, int, Item) {}},
        {"deaf from the start", [](Faults& f, int, Item) { f.deaf = true; }},
        {"deaf in the middle", [](Faults& f, int commands, Item) { f.deafAfter = commands / 2; }},
        {"does not hear one command", [](Faults& f, int commands, Item) { f.deafOnce = commands / 2; }},
        {"answers half a second late", [](Faults& f, int, Item) { f.slowMs = 500; }},
        {"answers in pieces", [](Faults& f, int, Item) { f.split = true; }},
        {"three answers at once", [](Faults& f, int, Item) { f.glued = 3; }},
        {"garbage between answers", [](Faults& f, int, Item) { f.garbage = true; }},
        {"bytes above 127", [](Faults& f, int, Item) { f.eighthBit = true; }},
        {"refuses everything", [](Faults& f, int, Item) { f.refuses = true; }},
        {"refuses one item", [](Faults& f, int, Item item) { f.refusesItems.emplace_back(item); }},
        {"unasked answers", [](Faults& f, int, Item) { f.unasked = true; }},
        {"unplugged in the middle", [](Faults& f, int commands, Item) { f.unplugged = commands / 2; }},
        {"unplugged at the last command", [](Faults& f, int commands, Item) { f.unplugged = commands - 1; }},
    };
    return all;
}

namespace {

std::vector<Trouble> makeTroubles() {
    using Bench = TroubleBench&;
    using Op = const TriedOperation&;
    using Usual = const Healthy&;
    std::vector<Trouble> all;
    for (const auto& line : lineTroubles()) {
        all.push_back({line.name, [&line](Bench b, Op op, Usual usual) {
                           line.arrange(b.ports.faults(), usual.commands, op.oneItem);
                       }});
    }
    const std::vector<Trouble> others = {
        {"unplugged before", [](Bench b, Op, Usual) { b.ports.unplug(), b.clock.advance(5); }},
        {"port closed by the user", [](Bench b, Op, Usual usual) { inTheMiddle(b, usual, [&b] { b.closePorts(); }); }},
        {"port closed and opened at once",
         [](Bench b, Op, Usual usual) {
             inTheMiddle(b, usual, [&b] { b.closePorts(), b.program.link.togglePort(); });
         }},
        {"port closed beside an open dialog", [](Bench b, Op, Usual) { besideDialogs(b, [&b] { b.closePorts(); }); }},
        {"unplugged beside an open dialog",
         [](Bench b, Op, Usual) { besideDialogs(b, [&b] { b.ports.unplug(), b.clock.advance(500); }); }},
        {"started again", [](Bench b, Op op, Usual usual) { inTheMiddle(b, usual, [&] { op.start(b); }); }},
        {secondOperationTrouble,
         [](Bench b, Op op, Usual usual) { inTheMiddle(b, usual, [&] { secondOperation(op).start(b); }); }},
        {"program ended",
         [](Bench b, Op, Usual usual) { inTheMiddle(b, usual, [&b] { EXPECT_TRUE(b.program.end()); }); }},
    };
    all.insert(all.end(), others.begin(), others.end());
    return all;
}

}  // namespace

const std::vector<Trouble>& troubles() {
    static const std::vector<Trouble> all = makeTroubles();
    return all;
}

}  // namespace korvex
