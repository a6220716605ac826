#include "doctor/RadioCheck.h"

#include <utility>

#include "base/Version.h"
#include "doctor/Advice.h"
#include "doctor/Beliefs.h"

namespace korvex {

namespace {

std::string raisedOrLow(std::optional<bool> raised) {
    if (!raised) return "not known";
    return *raised ? "raised" : "low";
}

}  // namespace

RadioCheck::RadioCheck(CatLink& link, std::function<std::string()> timeOfDay)
    : m_link(link), m_timeOfDay(std::move(timeOfDay)), m_examination(link) {
    m_examined = m_examination.ended.connect([this](const Outcome& outcome) { onEnded(outcome); });
}

void RadioCheck::begin(bool withSettings) {
    m_examination.begin(describedMachine(), withSettings);
}

/// "/dev/ttyUSB0: FTDI FT232R, serial number A5": the number is the owner's, and so may be the folders.
RadioReport RadioCheck::describedMachine() const {
    const MSComm& port = m_link.port();
    const std::string text = port.deviceText();
    const auto colon = text.find(": ");
    const std::string adapter = colon == std::string::npos ? "" : text.substr(colon + 2);
    constexpr int rtsHandshaking = 2;
    const bool driven = port.Handshaking() >= rtsHandshaking;
    RadioReport machine;
    machine.made = m_timeOfDay() + " with Korvex " + versionWithCommit();
    const std::string device = text.substr(0, colon);
    machine.device = device.substr(device.rfind('/') + 1);
    machine.adapter = adapter.substr(0, adapter.find(", serial number"));
    machine.latencyMs = port.latencyMs();
    machine.rts = driven ? "by handshaking" : raisedOrLow(port.RTSEnable());
    machine.cts = raisedOrLow(port.CTSHolding());
    return machine;
}

void RadioCheck::onEnded(const Outcome& outcome) {
    m_how = outcome;
    m_report = m_examination.report();
    conclude();
    ended.emit(outcome);
}

void RadioCheck::noteWalk(int registersRead, const std::string& notHome) {
    m_report.registersWalked = registersRead;
    m_report.notHome = notHome;
    conclude();
}

void RadioCheck::conclude() {
    judgeBeliefs(m_report);
    m_report.advice = adviceFor(m_report, m_how);
}

}  // namespace korvex
