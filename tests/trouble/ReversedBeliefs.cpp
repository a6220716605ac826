#include "TroubleBench.h"

namespace korvex {

const std::vector<Trouble>& reversedBeliefs() {
    using Bench = TroubleBench&;
    using Op = const TriedOperation&;
    using Usual = const Healthy&;
    const auto quirk = [](auto member, auto value) {
        return [member, value](Bench b, Op, Usual) { b.ports.radio().quirks.*member = value; };
    };
    static const std::vector<Trouble> all = {
        {"is of another model", [](Bench b, Op, Usual) { b.ports.cable.line.fixedAnswers["ID"] = "ID0310;"; }},
        {"obeys one of two commands sent at once", [](Bench b, Op, Usual) { b.ports.faults().oneAtATime = true; }},
        {"answers what it is set to", quirk(&Quirks::answersSets, true)},
        {"has no menu items 141 to 149", quirk(&Quirks::menuItems, 140)},
        {"has early menu numbers", quirk(&Quirks::earlyMenuNumbers, true)},
        {"does not let menu 042 be set", quirk(&Quirks::readOnlyItem, 42)},
        {"does not tell keyer texts",
         [](Bench b, Op, Usual) {
             for (const char* query : {"KM1", "KM2", "KM3", "KM4", "KM5"}) {
                 b.ports.cable.line.fixedAnswers[query] = "?;";
             }
         }},
        {"ends keyer texts with a brace", quirk(&Quirks::keyerTextEndsWithBrace, true)},
        {"tells empty channels as zeros", quirk(&Quirks::emptyChannelAnswersZeros, true)},
        {"tells the current channel only", quirk(&Quirks::readsCurrentChannel, true)},
        {"tells another source of channels", quirk(&Quirks::sourceInMemoryRead, '5')},
        {"goes to memory mode with a write", quirk(&Quirks::writeEntersMemoryMode, true)},
        {"tells no receive antenna", quirk(&Quirks::antennaAnswerTellsRxAntenna, false)},
        {"does not tell what automatic chose", quirk(&Quirks::automaticIsResolved, false)},
        {"has no 60 m band", quirk(&Quirks::hasSixtyMetres, false)},
    };
    return all;
}

}  // namespace korvex
