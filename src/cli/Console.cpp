#include "cli/Console.h"

#include <algorithm>

#include "base/Printable.h"
#include "platform/Settings.h"

namespace korvex::cli {

MsgAnswer ConsoleMsgBox::show(const MsgBoxRequest& request) {
    m_stream << "korvexctl: " << request.text << "\n";
    switch (request.buttons) {
        case MsgButtons::Ok: return MsgAnswer::Ok;
        case MsgButtons::YesNo:
        case MsgButtons::YesNoCareful: return MsgAnswer::No;
        case MsgButtons::AbortRetryIgnore: return MsgAnswer::Ignore;
        case MsgButtons::CancelTryAgainContinue: break;
    }
    return MsgAnswer::Cancel;
}

std::string BorrowedSettings::get(std::string_view application, std::string_view section, std::string_view key,
                                  std::string_view fallback) const {
    const auto changed = m_changed.find(std::string(section) + '/' + std::string(key));
    return changed == m_changed.end() ? m_lender.get(application, section, key, fallback) : changed->second;
}

void BorrowedSettings::save(std::string_view application, std::string_view section, std::string_view key,
                            std::string_view value) {
    if (m_keeper != nullptr && section == knownRadioSection) m_keeper->save(application, section, key, value);
    m_changed[std::string(section) + '/' + std::string(key)] = value;
}

ProgressLine::ProgressLine(ProgressWindow& progress, std::ostream& stream) : m_progress(progress), m_stream(stream) {
    m_connections += progress.value.changed.connect([this](int) { draw(); });
    m_connections += progress.visible.changed.connect([this](bool visible) {
        if (!visible) wipe();
    });
}

void ProgressLine::draw() {
    if (!m_progress.visible) return;
    const int percent =
        100 * std::min(m_progress.value.get(), m_progress.maximum.get()) / std::max(m_progress.maximum.get(), 1);
    m_stream << "\r" << printable(m_progress.caption.get()) << "  " << percent << " % " << std::flush;
}

void ProgressLine::wipe() {
    m_stream << "\r\033[K" << std::flush;
}

}  // namespace korvex::cli
