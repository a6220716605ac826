#include "TroubleBench.h"

namespace korvex {

namespace {

Faults& faults(TroubleBench& bench) {
    return bench.ports.faults();
}

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

const std::vector<Trouble>& troubles() {
    using Bench = TroubleBench&;
    using Op = const TriedOperation&;
    using Usual = const Healthy&;
    static const std::vector<Trouble> all = {
        {"none", [](Bench, Op, Usual) {}},
        {"deaf from the start", [](Bench b, Op, Usual) { faults(b).deaf = true; }},
        {"deaf in the middle", [](Bench b, Op, Usual usual) { faults(b).deafAfter = usual.commands / 2; }},
        {"does not hear one command", [](Bench b, Op, Usual usual) { faults(b).deafOnce = usual.commands / 2; }},
        {"answers half a second late", [](Bench b, Op, Usual) { faults(b).slowMs = 500; }},
        {"answers in pieces", [](Bench b, Op, Usual) { faults(b).split = true; }},
        {"three answers at once", [](Bench b, Op, Usual) { faults(b).glued = 3; }},
        {"garbage between answers", [](Bench b, Op, Usual) { faults(b).garbage = true; }},
        {"bytes above 127", [](Bench b, Op, Usual) { faults(b).eighthBit = true; }},
        {"refuses everything", [](Bench b, Op, Usual) { faults(b).refuses = true; }},
        {"refuses one item", [](Bench b, Op op, Usual) { faults(b).refusesItems.emplace_back(op.oneItem); }},
        {"unasked answers", [](Bench b, Op, Usual) { faults(b).unasked = true; }},
        {"unplugged before", [](Bench b, Op, Usual) { b.ports.unplug(), b.clock.advance(5); }},
        {"unplugged in the middle", [](Bench b, Op, Usual usual) { faults(b).unplugged = usual.commands / 2; }},
        {"unplugged at the last command", [](Bench b, Op, Usual usual) { faults(b).unplugged = usual.commands - 1; }},
        {"port closed by the user", [](Bench b, Op, Usual usual) { inTheMiddle(b, usual, [&b] { b.closePorts(); }); }},
        {"port closed and opened at once",
         [](Bench b, Op, Usual usual) {
             inTheMiddle(b, usual, [&b] { b.closePorts(), b.program.link.togglePort(); });
         }},
        {"port closed beside an open dialog", [](Bench b, Op, Usual) { besideDialogs(b, [&b] { b.closePorts(); }); }},
        {"unplugged beside an open dialog",
         [](Bench b, Op, Usual) { besideDialogs(b, [&b] { b.ports.unplug(), b.clock.advance(500); }); }},
        {"started again", [](Bench b, Op op, Usual usual) { inTheMiddle(b, usual, [&] { op.start(b); }); }},
        {"a second operation",
         [](Bench b, Op op, Usual usual) { inTheMiddle(b, usual, [&] { secondOperation(op).start(b); }); }},
        {"program ended",
         [](Bench b, Op, Usual usual) { inTheMiddle(b, usual, [&b] { EXPECT_TRUE(b.program.end()); }); }},
    };
    return all;
}

}  // namespace korvex
