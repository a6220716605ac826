#include "doctor/RadioCheck.h"

#include <string_view>
#include <utility>

#include "base/NumberText.h"
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
    m_begunAt = m_timeOfDay();
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
    machine.made = m_begunAt + " with Korvex " + versionWithCommit();
    const std::string device = text.substr(0, colon);
    constexpr std::string_view devices = "/dev/";
    machine.device = device.substr(device.starts_with(devices) ? devices.size() : device.rfind('/') + 1);
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

KnownRadio RadioCheck::learned() const {
    if (!m_how.isDone()) return {};
    KnownRadio radio{.checked = m_begunAt,
                     .device = m_link.port().deviceText(),
                     .longestDelayMs = m_report.longestMs(),
                     .refusedItems = {},
                     .hasEarlyMenuNumbers = m_report.isRefuted("menu-numbers"),
                     .hasOtherEqualizer = m_report.isRefuted("equalizer-form"),
                     .obeysOneAtATime = m_report.isRefuted("two-at-once"),
                     .closesKeyerTexts = m_report.isRefuted("keyer-end")};
    for (const int item : menuItemsWith(m_report, "?;")) radio.refusedItems.push_back(zeroPadded(item, 3));
    return radio;
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
