#include "share/CatFace.h"

#include "base/AsciiText.h"

namespace korvex {

namespace {

constexpr std::string_view timeOutQuestion = "EX029;";

}  // namespace

CatFace::CatFace(SharedLine& line, std::unique_ptr<Caller> caller) : m_line(line), m_caller(std::move(caller)) {
    m_connections += m_caller->said.connect([this](std::string_view bytes) { hear(bytes); });
    m_connections += m_caller->left.connect([this] { forget(); });
    m_connections += m_line.unasked.connect([this](std::string_view wire) {
        if (m_wantsUnasked) reply(wire);
    });
}

CatFace::~CatFace() {
    forget();
}

void CatFace::hear(std::string_view bytes) {
    for (const auto& command : m_cutter.take(bytes)) {
        if (command.sound()) {
            obey(command.wire);
        } else {
            answer("?;");
        }
    }
}

void CatFace::obey(const std::string& wire) {
    const std::string heard = inCapitals(wire);
    if (heard.starts_with("EX029") && heard.size() > timeOutQuestion.size()) {
        m_timeOut = heard;
    } else if (heard == timeOutQuestion && !m_timeOut.empty()) {
        answer(m_timeOut);
    } else {
        if (heard == "AI0;" || heard == "AI1;") m_wantsUnasked = heard == "AI1;";
        pass(wire);
    }
}

/// In its turn, behind the answers that are still to come.
void CatFace::answer(const std::string& wire) {
    m_line.ask({this, {}, [this](std::string_view text) { reply(text); }, wire});
}

void CatFace::pass(const std::string& wire) {
    m_line.ask({this, wire, [this](std::string_view text) { reply(text); }});
}

void CatFace::reply(std::string_view wire) {
    if (!wire.empty()) m_caller->write(wire);
}

void CatFace::forget() {
    m_line.forget(this);
    m_cutter.forget();
    m_timeOut.clear();
    if (m_wantsUnasked) m_line.ask({nullptr, "AI0;", [](std::string_view) {}});
    m_wantsUnasked = false;
}

}  // namespace korvex
