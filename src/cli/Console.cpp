#include "cli/Console.h"

#include <algorithm>

namespace korvex::cli {

namespace {

bool isControl(unsigned char c) {
    return (c < ' ' && c != '\n' && c != '\t') || c == 0x7F;
}

/// U+2400 and the 32 behind it are the pictures of the control characters; delete has its own.
std::string picture(unsigned char c) {
    const int place = c == 0x7F ? 0x21 : c;
    return "\xE2\x90" + std::string(1, static_cast<char>(0x80 + place));
}

}  // namespace

std::string printable(std::string_view utf8) {
    constexpr std::string_view replacement = "\xEF\xBF\xBD";
    std::string text;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        const auto next = i + 1 < utf8.size() ? static_cast<unsigned char>(utf8[i + 1]) : 0;
        if (c == '\r' && next == '\n') continue;
        if (isControl(c)) {
            text += picture(c);
        } else if (c == 0xC2 && next >= 0x80 && next < 0xA0) {
            text += replacement;  // the control characters above 127 have no pictures
            ++i;
        } else {
            text += utf8[i];
        }
    }
    return text;
}

MsgAnswer ConsoleMsgBox::show(const MsgBoxRequest& request) {
    m_stream << "korvexctl: " << printable(request.text) << "\n";
    switch (request.buttons) {
        case MsgButtons::Ok: return MsgAnswer::Ok;
        case MsgButtons::YesNo:
        case MsgButtons::YesNoCareful: return MsgAnswer::No;
        case MsgButtons::AbortRetryIgnore: return MsgAnswer::Ignore;
        case MsgButtons::CancelTryAgainContinue: break;
    }
    return MsgAnswer::Cancel;
}

std::optional<std::string> GivenFile::show(const FileDialogRequest& request) {
    if (request.mode == FileDialogRequest::Mode::Save && objection) {
        objected = objection();
        if (!objected.empty()) return std::nullopt;
    }
    return file;
}

std::string BorrowedSettings::get(std::string_view application, std::string_view section, std::string_view key,
                                  std::string_view fallback) const {
    const auto changed = m_changed.find(std::string(section) + '/' + std::string(key));
    return changed == m_changed.end() ? m_lender.get(application, section, key, fallback) : changed->second;
}

void BorrowedSettings::save(std::string_view, std::string_view section, std::string_view key, std::string_view value) {
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
    m_stream << "\r" << m_progress.caption.get() << "  " << percent << " % " << std::flush;
}

void ProgressLine::wipe() {
    m_stream << "\r\033[K" << std::flush;
}

}  // namespace korvex::cli
