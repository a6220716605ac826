#include "doctor/CheckEntry.h"

#include <utility>

#include "report/ReportText.h"

namespace korvex {

CheckEntry::CheckEntry(CheckEntryNeeds needs)
    : m_needs(std::move(needs)),
      m_files(m_needs.desk, keys::reportPath),
      m_entry(m_files, m_needs.clock, "Check", m_needs.whyNotNow) {  // short: a small box cuts its title
    m_ended = m_needs.check.ended.connect([this](const Outcome&) { onEnded(); });
}

void CheckEntry::mnu_CheckRadio_Click() {
    begin({});
}

bool CheckEntry::propose(std::function<void()> afterwards) {
    SettingsStore& settings = m_needs.desk.settings;
    if (m_needs.isKnown() || readSetting(settings, keys::checkProposed)) return false;
    writeSetting(settings, keys::checkProposed, true);
    const bool wanted =
        m_entry.show({"Korvex has not met this radio yet. A check asks it some 300 questions, sets nothing, and takes "
                      "half a minute or more. It shows whether the radio is as Korvex believes it to be, and what it "
                      "learns it heeds from then on.\r\n\r\nCheck the radio now, before the backup? (\"More\", \"Check "
                      "Radio...\" does it at any time.)",
                      {},
                      MsgIcon::Question,
                      MsgButtons::YesNo}) == MsgAnswer::Yes;
    if (wanted) begin(std::move(afterwards));
    return wanted;
}

void CheckEntry::begin(std::function<void()> afterwards) {
    if (!m_entry.hasLine() || !m_needs.freeLine()) return;
    m_started = true;
    m_afterwards = std::move(afterwards);
    m_needs.check.begin();
}

void CheckEntry::onEnded() {
    if (std::exchange(m_started, false)) m_entry.soon([this] { tell(); });
}

void CheckEntry::tell() {
    const RadioReport& seen = m_needs.check.report();
    const bool isWhole = m_needs.check.how().isDone();
    const auto afterwards = std::exchange(m_afterwards, nullptr);
    std::string text;
    for (const auto& line : seen.advice) text += line + "\r\n\r\n";
    if (seen.model.empty()) {
        m_entry.exclaim(text);
        return;
    }
    const std::string report = reportText(seen);
    text += "Save the report in a file? It is good to read and to send: no frequency, text or name of yours is in it.";
    const MsgIcon icon = isWhole ? MsgIcon::Question : MsgIcon::Exclamation;
    if (m_entry.show({text, {}, icon, MsgButtons::YesNo, report}) == MsgAnswer::Yes) save(report);
    if (isWhole && afterwards) afterwards();
}

void CheckEntry::save(const std::string& report) {
    m_files.write({"Save Report about the Radio", "txt"}, report,
                  [this](const RuntimeError& error) { m_files.tell(error); });
}

}  // namespace korvex
